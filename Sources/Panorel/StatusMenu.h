#pragma once

#include "Panorel/Panel/SceneList.h"

#include <QCoreApplication>
#include <QMenu>

namespace Panorel {

class PanelModel;
class Prefs;

/// The icon's own menu: the same actions as the panel's rows, for trays that only show menus and
/// for whoever prefers one. Follows the model.
class StatusMenu {
    Q_DECLARE_TR_FUNCTIONS(Panorel::StatusMenu)

public:
    /// The model must outlive it.
    StatusMenu(const PanelModel &model, std::function<void()> openPanel);

    QMenu &menu() { return m_menu; }
    void rebuild();

private:
    void addScenes();
    void add(const QString &title, const std::function<void()> &action);

    const PanelModel &m_model;
    std::function<void()> m_openPanel;
    QMenu m_menu;
};

} // namespace Panorel
