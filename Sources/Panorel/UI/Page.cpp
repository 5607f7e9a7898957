#include "Panorel/UI/Page.h"

#include "Panorel/UI/Centred.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/RowCard.h"
#include "Panorel/UI/SectionHeading.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

Page::Page(const QString &title, QWidget *parent)
    : QScrollArea(parent), m_header(new QHBoxLayout), m_contents(new QVBoxLayout)
{
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setAccessibleName(title);

    auto *name = new TextLabel(TextStyle::Title);
    name->setText(title);
    m_header->setSpacing(Metrics::small);
    m_header->addWidget(name, 1);
    m_contents->setSpacing(Metrics::small);
    m_contents->addStretch(1); // stays the last, and takes what the contents do not need

    auto *column = new QWidget;
    column->setMaximumWidth(Metrics::contentWidth);
    auto *lines = new QVBoxLayout(column);
    lines->setContentsMargins({});
    lines->setSpacing(Metrics::large);
    lines->addLayout(m_header);
    lines->addLayout(m_contents, 1);

    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(Metrics::wide, Metrics::wide, Metrics::wide, Metrics::wide);
    layout->addLayout(centred(column));
    setWidget(content);
    // What is behind the page shows, in the window's colour.
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

void Page::addToHeader(QWidget *control)
{
    m_header->addWidget(control, 0, Qt::AlignVCenter);
}

RowCard *Page::addCard(const QString &heading)
{
    if (!heading.isEmpty()) {
        auto *title = new SectionHeading(heading, {});
        const int above = m_contents->count() > 1 ? Metrics::small : 0;
        title->layout()->setContentsMargins(Metrics::medium, above, Metrics::medium, 0);
        addWidget(title);
    }
    auto *card = new RowCard;
    addWidget(card);
    return card;
}

void Page::addWidget(QWidget *widget)
{
    m_contents->insertWidget(m_contents->count() - 1, widget);
}

void Page::addFilling(QWidget *widget)
{
    widget->setSizePolicy(widget->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    constexpr int nearlyAll = 1000; // of what would be left below it
    m_contents->insertWidget(m_contents->count() - 1, widget, nearlyAll);
}

} // namespace Panorel
