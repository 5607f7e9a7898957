#pragma once

#include "Panorel/SceneStudio/SceneStudioModel.h"

namespace Panorel {

/// Undo and redo while a scene is edited: what happens to the boxes between begin() and end() is
/// one step, and none if they are the same afterwards.
class StudioHistory : public QObject {
    Q_OBJECT

public:
    /// The model must outlive it.
    explicit StudioHistory(SceneStudioModel &model);

    /// A step that is still open ends first.
    void begin();
    void end();
    /// Puts the boxes back to where they were at begin().
    void cancel();

    bool canUndo() const;
    bool canRedo() const { return !m_after.empty(); }
    void undo();
    void redo();

    /// Whether the boxes differ from those that the editor opened with.
    bool isChanged() const { return m_model.boxes() != m_original; }

Q_SIGNALS:
    /// There is more or less to undo or redo.
    void changed();

private:
    using Boxes = std::vector<SceneStudioModel::Box>;

    SceneStudioModel &m_model;
    Boxes m_original;
    std::optional<Boxes> m_begun;
    std::vector<Boxes> m_before; ///< the latest last
    std::vector<Boxes> m_after;  ///< what to redo next last
};

} // namespace Panorel
