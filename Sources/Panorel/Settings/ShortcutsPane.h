#pragma once

#include "Panorel/Settings/SettingsEnvironment.h"
#include "Panorel/UI/Page.h"

namespace Panorel {

class Card;
class ShortcutRow;

/// The global keys of the fixed actions and of every scene.
class ShortcutsPane : public Page {
    Q_OBJECT

public:
    /// The model must outlive it.
    ShortcutsPane(SettingsModel &model, const SettingsEnvironment &environment,
                  QWidget *parent = nullptr);

private:
    void addFixedActions();
    void refresh();
    void rebuildScenes();
    void setSceneKey(const QUuid &id, const std::optional<HotKeyCombo> &combo);
    void showKey(ShortcutRow &row, const QString &keyID, const QString &name,
                 const QString &explanation, const std::optional<HotKeyCombo> &combo);
    ShortcutRow *makeRow();

    SettingsModel &m_model;
    SettingsEnvironment m_environment;
    std::vector<ShortcutRow *> m_fixed; ///< in the order of fixedActions
    RowCard *m_scenes = nullptr;
    Card *m_noScenes = nullptr;
    std::vector<QUuid> m_sceneIDs; ///< of the rows that there are
    std::vector<ShortcutRow *> m_sceneRows;
};

} // namespace Panorel
