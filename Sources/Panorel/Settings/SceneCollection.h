#pragma once

#include "Panorel/Settings/SceneCard.h"
#include "Panorel/Settings/SceneGroup.h"
#include "Panorel/UI/Page.h"

namespace Panorel {

class EmptyState;
class PlainButton;
class UndoLine;

/// A page with every scene of every desk, and what makes another.
class SceneCollection : public Page {
    Q_OBJECT

public:
    using EditScene = std::function<void(const QUuid &scene)>;

    /// A null `editScene`: nothing is offered to edit. `environment` as a
    /// SceneCard takes it.
    SceneCollection(const QString &title, SettingsModel &model, EditScene editScene,
                    const std::optional<SettingsEnvironment> &environment,
                    QWidget *parent = nullptr);

private:
    void refresh();
    void arrange();
    SceneCard *takeCard(const QUuid &id);
    SceneCard *makeCard();
    void add();
    void askToDelete(const QUuid &id);
    void remove(const QUuid &id);

    SettingsModel &m_model;
    EditScene m_editScene;
    std::optional<SettingsEnvironment> m_environment;
    std::vector<SceneGroup> m_groups;
    std::vector<SceneCard *> m_cards; ///< one for each scene, in the order shown
    PlainButton *m_add;
    UndoLine *m_undo;
    EmptyState *m_empty;
    QWidget *m_list;
};

} // namespace Panorel
