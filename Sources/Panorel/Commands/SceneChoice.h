#pragma once

#include "PanorelCore/Records/Models.h"

namespace Panorel {

/// The scene that somebody means by a name or an id.
class SceneChoice {
public:
    /// An id in either case, or the name to the letter. Of several scenes of that name the one of
    /// this desk is meant; every desk has its "Scene 1". The list must outlive the choice.
    SceneChoice(const std::vector<SceneRecord> &scenes, const QString &nameOrID,
                const QString &configID);

    /// Null where none is meant, or it is not clear which.
    const SceneRecord *scene() const { return m_scene; }
    const QString &reason() const { return m_reason; } ///< why there is none, for the user

private:
    const SceneRecord *m_scene = nullptr;
    QString m_reason;
};

} // namespace Panorel
