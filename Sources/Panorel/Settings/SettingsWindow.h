#pragma once

#include "Panorel/Settings/SettingsEnvironment.h"

#include <QWidget>

#include <map>

class QStackedWidget;

namespace Panorel {

class Prefs;
class Sidebar;
class UpdaterCenter;

/// The settings: the panes' names at the left, the model's selected one at the right. A pane is
/// made when it is first shown.
class SettingsWindow : public QWidget {
    Q_OBJECT

public:
    /// All must outlive it. Null: there is no updater.
    SettingsWindow(SettingsModel &model, Prefs &prefs, UpdaterCenter *updater,
                   const SettingsEnvironment &environment);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void showSelectedPane();
    QWidget *makePane(SettingsSection section);

    SettingsModel &m_model;
    Prefs &m_prefs;
    UpdaterCenter *m_updater;
    SettingsEnvironment m_environment;
    Sidebar *m_sidebar;
    QStackedWidget *m_stack;
    std::map<SettingsSection, QWidget *> m_panes;
};

} // namespace Panorel
