#include "Panorel/Layouts/RulesTab.h"

#include "Panorel/Layouts/RuleDelegate.h"
#include "Panorel/Layouts/RuleHeader.h"
#include "Panorel/Layouts/RulesModel.h"
#include "Panorel/UI/Card.h"
#include "Panorel/UI/Centred.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextLabel.h"

#include <QEvent>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

namespace Panorel {

RulesTab::RulesTab(SettingsModel &model, QWidget *parent)
    : QWidget(parent), m_settings(model), m_rules(new RulesModel(model, this)),
      m_search(new QLineEdit),
      m_explanation(new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap)),
      m_noMatch(new TextLabel(TextStyle::Body)), m_list(new Card), m_table(makeTable()),
      m_empty(new EmptyState(Symbol::Rules,
                             tr("Every application of which Panorel remembers a window appears "
                                "here, with what you decide for it.")))
{
    auto *title = new TextLabel(TextStyle::Title);
    title->setText(tr("Rules for applications"));
    m_explanation->setText(tr("Windows of an ignored application are never moved. Otherwise each "
                              "window goes back to its place, and to its size where sizes are "
                              "restored or you ask for it here."));
    m_search->setPlaceholderText(tr("Search"));
    m_search->setAccessibleName(tr("Search applications"));
    m_search->setMinimumHeight(Metrics::hitArea);
    m_search->setClearButtonEnabled(true);
    m_noMatch->setText(tr("No application is called so."));
    m_noMatch->setObjectName(QStringLiteral("noMatch"));
    m_noMatch->setAlignment(Qt::AlignCenter);

    m_list->body()->setContentsMargins(1, Metrics::tight, 1, Metrics::tight); // within its line
    m_list->body()->addWidget(m_table);

    auto *column = new QWidget;
    column->setMaximumWidth(Metrics::contentWidth);
    auto *lines = new QVBoxLayout(column);
    lines->setContentsMargins({});
    lines->setSpacing(Metrics::small);
    lines->addWidget(title);
    lines->addWidget(m_explanation);
    lines->addWidget(m_search);
    lines->addWidget(m_noMatch);
    lines->addWidget(m_list, 1);
    lines->addWidget(m_empty, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Metrics::wide, Metrics::wide, Metrics::wide, Metrics::wide);
    layout->addLayout(centred(column));

    connect(m_search, &QLineEdit::textChanged, m_rules, &RulesModel::setFilter);
    connect(m_search, &QLineEdit::textChanged, this, &RulesTab::refresh);
    connect(&m_settings, &SettingsModel::changed, this, &RulesTab::refresh);
    fitRows();
    refresh();
}

QTableView *RulesTab::makeTable()
{
    auto *table = new QTableView;
    table->setAccessibleName(tr("Rules for applications"));
    table->setModel(m_rules);
    table->setItemDelegate(new RuleDelegate(table));
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setTabKeyNavigation(false); // Tab leaves the table, the arrow keys move in it
    table->setMouseTracking(true);
    table->setShowGrid(false);
    table->setFrameShape(QFrame::NoFrame); // the card has one
    table->viewport()->setAutoFillBackground(false);
    table->setWordWrap(false);
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->verticalHeader()->hide();
    auto *header = new RuleHeader;
    table->setHorizontalHeader(header);
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setResizeContentsPrecision(0); // by what shows, not by a thousand rows
    header->setSectionResizeMode(RulesModel::Application, QHeaderView::Stretch);
    return table;
}

void RulesTab::refresh()
{
    const bool isEmpty = m_settings.rules().empty();
    const bool hasRows = m_rules->rowCount() > 0;
    for (QWidget *widget : std::initializer_list<QWidget *>{m_explanation, m_search})
        widget->setVisible(!isEmpty);
    m_empty->setVisible(isEmpty);
    m_noMatch->setVisible(!isEmpty && !hasRows);
    m_list->setVisible(!isEmpty);
}

/// One height for all: asking every row for its own takes a while.
void RulesTab::fitRows()
{
    QHeaderView *rows = m_table->verticalHeader();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(m_table->itemDelegate()->sizeHint({}, {}).height());
}

void RulesTab::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        fitRows();
    QWidget::changeEvent(event);
}

} // namespace Panorel
