#include "Panorel/StatusMenu.h"

#include "Panorel/PanelModel.h"

namespace Panorel {

StatusMenu::StatusMenu(const PanelModel &model, std::function<void()> openPanel)
    : m_model(model), m_openPanel(std::move(openPanel))
{
    rebuild();
}

void StatusMenu::rebuild()
{
    m_menu.clear();
    add(tr("Open Panel"), m_openPanel);
    m_menu.addSeparator();
    if (m_model.hasPermission())
        add(tr("Restore Now"), m_model.onRestoreNow);
    else if (m_model.isPermissionGrantedByUser())
        add(tr("Grant permission…"), m_model.onGrantPermission);
    if (m_model.canUndo())
        add(tr("Undo"), m_model.onUndo);
    add(m_model.isStashed() ? tr("Bring the desk back") : tr("Stash the desk"), m_model.onStash);
    addScenes();
    m_menu.addSeparator();
    add(tr("Layouts…"), m_model.onOpenLayouts);
    add(tr("Settings…"), m_model.onOpenSettings);
    add(tr("Check for Updates…"), m_model.onCheckForUpdates);
    add(tr("Quit Panorel"), m_model.onQuit);
}

void StatusMenu::addScenes()
{
    m_menu.addSeparator();
    if (m_model.onApplyScene) {
        for (const SceneRecord &scene : m_model.scenes())
            add(scene.name, [this, id = scene.id] { m_model.onApplyScene(id); });
    }
    add(tr("Save current as scene"), m_model.onSaveScene);
}

void StatusMenu::add(const QString &title, const std::function<void()> &action)
{
    if (!action)
        return;
    QString text = title;
    text.replace(u'&', QStringLiteral("&&")); // or it would mark a shortcut
    QObject::connect(m_menu.addAction(text), &QAction::triggered, &m_menu, action);
}

} // namespace Panorel
