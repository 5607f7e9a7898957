#include "Panorel/Settings/ShortcutsPane.h"

#include "Panorel/Settings/ShortcutRow.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/RowCard.h"

#include <QVBoxLayout>

namespace Panorel {

ShortcutsPane::ShortcutsPane(SettingsModel &model, const SettingsEnvironment &environment,
                             QWidget *parent)
    : Page(tr("Shortcuts"), parent), m_model(model), m_environment(environment)
{
    addFixedActions();
    m_scenes = addCard(tr("Scenes"));
    m_noScenes = new Card;
    auto *empty = new EmptyState(Symbol::Scene, tr("Scenes that you save can have a key each."),
                                 tr("Save current as scene"));
    connect(empty, &EmptyState::clicked, this, [this] { m_model.addSceneFromCurrentWindows(); });
    m_noScenes->body()->addWidget(empty);
    addWidget(m_noScenes);
    connect(&m_model, &SettingsModel::changed, this, &ShortcutsPane::refresh);
    refresh();
}

void ShortcutsPane::addFixedActions()
{
    RowCard &card = *addCard();
    for (const FixedAction action : fixedActions) {
        ShortcutRow *row = makeRow();
        connect(row, &ShortcutRow::keyChosen, this,
                [this, action](const auto &combo) { m_model.setKey(action, combo); });
        m_fixed.push_back(row);
        card.addRow(row);
    }
}

ShortcutRow *ShortcutsPane::makeRow()
{
    return new ShortcutRow(m_environment,
                           [this](const HotKeyCombo &combo) { return m_model.keyText(combo); });
}

void ShortcutsPane::refresh()
{
    for (std::size_t i = 0; i < fixedActions.size(); ++i) {
        const FixedAction action = fixedActions[i];
        showKey(*m_fixed[i], keyID(action), nameOf(action), {}, m_model.key(action));
    }
    std::vector<QUuid> ids;
    for (const SceneRecord &scene : m_model.scenes())
        ids.push_back(scene.id);
    // The rows stay as long as they can: one of them may have the keyboard.
    if (ids != m_sceneIDs) {
        m_sceneIDs = ids;
        rebuildScenes();
    }
    m_scenes->setVisible(!ids.empty());
    m_noScenes->setVisible(ids.empty());
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const SceneRecord &scene = m_model.scenes()[i];
        showKey(*m_sceneRows[i], keyID(scene), scene.name, m_model.deskName(scene.configID),
                scene.hotKey);
    }
}

void ShortcutsPane::rebuildScenes()
{
    m_scenes->clear();
    m_sceneRows.clear();
    for (const QUuid &id : m_sceneIDs) {
        ShortcutRow *row = makeRow();
        connect(row, &ShortcutRow::keyChosen, this,
                [this, id](const auto &combo) { setSceneKey(id, combo); });
        m_sceneRows.push_back(row);
        m_scenes->addRow(row);
    }
}

void ShortcutsPane::setSceneKey(const QUuid &id, const std::optional<HotKeyCombo> &combo)
{
    const SceneRecord *scene = m_model.scene(id);
    if (!scene)
        return;
    SceneRecord changed = *scene;
    changed.hotKey = combo;
    m_model.updateScene(changed);
}

void ShortcutsPane::showKey(ShortcutRow &row, const QString &keyID, const QString &name,
                            const QString &explanation, const std::optional<HotKeyCombo> &combo)
{
    row.showKey(name, explanation, combo,
                combo ? m_model.collisions(*combo, keyID) : QStringList());
}

} // namespace Panorel
