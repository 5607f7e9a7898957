#pragma once

#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Records/ModelCoding.h"

namespace Panorel {

/// The user's scenes, several per desk, and which one was applied last on each desk, in
/// scenes.json. Scenes stand in the order added and outlive a forgotten desk. Every change saves
/// the whole file.
class SceneStore {
public:
    SceneStore(AppLog &log, const Clock &clock);

    const std::vector<SceneRecord> &allScenes() const { return m_file.scenes; }
    std::vector<SceneRecord> scenesFor(const QString &configID) const;

    /// Null for an unknown id. Valid until the store changes.
    const SceneRecord *scene(const QUuid &id) const;

    /// Appends without looking for the same id or name.
    void add(const SceneRecord &scene);

    /// Replaces the first scene of that id; an unknown id changes nothing.
    void update(const SceneRecord &scene);

    /// Removes every scene of that id, and what was remembered of applying it.
    void remove(const QUuid &id);

    void markApplied(const QUuid &sceneID, const QString &configID);

    /// Absent where none was applied. The scene itself may be gone.
    std::optional<QUuid> lastApplied(const QString &configID) const;

    /// The whole file.
    const SceneFile &contents() const { return m_file; }

    /// Takes all of it in place of what is there, and saves. False where the file can't be
    /// written; then it holds only as long as the program runs.
    bool replaceAll(SceneFile contents);

private:
    JSONStore<SceneFile> m_store;
    SceneFile m_file;
};

} // namespace Panorel
