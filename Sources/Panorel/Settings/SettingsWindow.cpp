#include "Panorel/Settings/SettingsWindow.h"

#include "Panorel/Settings/AboutPane.h"
#include "Panorel/Settings/DisplaysPane.h"
#include "Panorel/Settings/GeneralPane.h"
#include "Panorel/Settings/ShortcutsPane.h"
#include "Panorel/UI/Sidebar.h"
#include "Panorel/UI/TabOrder.h"
#include "Panorel/UI/Theme.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <QStackedWidget>

namespace Panorel {

SettingsWindow::SettingsWindow(SettingsModel &model, Prefs &prefs, UpdaterCenter *updater,
                               const SettingsEnvironment &environment)
    : m_model(model), m_prefs(prefs), m_updater(updater), m_environment(environment),
      m_sidebar(new Sidebar(tr("Sections"))), m_stack(new QStackedWidget)
{
    setWindowTitle(tr("Panorel Settings"));
    setMinimumSize(560, 360);
    // In the order of SettingsSection.
    m_sidebar->add(Symbol::General, tr("General"));
    m_sidebar->add(Symbol::Display, tr("Displays"));
    m_sidebar->add(Symbol::Keyboard, tr("Shortcuts"));
    m_sidebar->add(Symbol::Scene, tr("Scenes"));
    m_sidebar->add(Symbol::Clock, tr("Automation"));
    m_sidebar->add(Symbol::Info, tr("About"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_sidebar);
    layout->addWidget(m_stack, 1);

    auto *close = new QShortcut(QKeySequence::Close, this);
    connect(close, &QShortcut::activated, this, &QWidget::close);
    connect(m_sidebar, &Sidebar::chosen, this,
            [this](int index) { m_model.setSelectedSection(SettingsSection(index)); });
    connect(&m_model, &SettingsModel::changed, this, &SettingsWindow::showSelectedPane);
    showSelectedPane();
}

void SettingsWindow::showSelectedPane()
{
    const SettingsSection section = m_model.selectedSection();
    QWidget *&pane = m_panes[section];
    if (!pane) {
        pane = makePane(section);
        m_stack->addWidget(pane);
    }
    m_sidebar->setCurrent(int(section));
    m_stack->setCurrentWidget(pane);
    orderTabsByLayout(*this); // the model's change may have brought new rows
}

QWidget *SettingsWindow::makePane(SettingsSection section)
{
    switch (section) {
    case SettingsSection::General:
        return new GeneralPane(m_model, m_prefs, m_environment.hasDock);
    case SettingsSection::Displays:
        return new DisplaysPane(m_model, m_prefs, m_environment.takeSettleSeconds);
    case SettingsSection::Shortcuts:
        return new ShortcutsPane(m_model, m_environment);
    case SettingsSection::About:
        return new AboutPane(m_model, m_updater, m_environment.libraries);
    case SettingsSection::Scenes:
    case SettingsSection::Automation:
        break;
    }
    QWidget *pane = m_environment.makePane ? m_environment.makePane(section) : nullptr;
    return pane ? pane : new QWidget;
}

void SettingsWindow::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), Theme::of(palette()).window);
}

} // namespace Panorel
