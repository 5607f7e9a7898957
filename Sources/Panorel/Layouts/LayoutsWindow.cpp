#include "Panorel/Layouts/LayoutsWindow.h"

#include "Panorel/AppIcon.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SegmentedControl.h"
#include "Panorel/UI/Separator.h"

#include <QKeyEvent>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace Panorel {

LayoutsWindow::LayoutsWindow(SettingsModel &model, const std::vector<QWidget *> &pages)
    : m_model(model),
      m_tabs(new SegmentedControl({tr("Desks"), tr("Scenes"), tr("Rules")}, tr("Section"))),
      m_pages(new QStackedWidget)
{
    setWindowTitle(QStringLiteral("Panorel Layouts"));
    setWindowIcon(appIcon());
    for (QWidget *page : pages)
        m_pages->addWidget(page);
    auto *tabs = new QHBoxLayout;
    tabs->setContentsMargins(Metrics::large, Metrics::medium, Metrics::large, Metrics::medium);
    tabs->addStretch();
    tabs->addWidget(m_tabs);
    tabs->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addLayout(tabs);
    layout->addWidget(new Separator);
    layout->addWidget(m_pages, 1);
    connect(m_tabs, &SegmentedControl::chosen, this,
            [this](int index) { m_model.setLayoutsSection(LayoutsSection(index)); });
    connect(&m_model, &SettingsModel::changed, this, &LayoutsWindow::refresh);
    refresh();
}

void LayoutsWindow::refresh()
{
    m_tabs->setCurrent(int(m_model.layoutsSection()));
    m_pages->setCurrentIndex(int(m_model.layoutsSection()));
}

void LayoutsWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close))
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace Panorel
