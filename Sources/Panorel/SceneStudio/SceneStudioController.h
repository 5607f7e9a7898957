#pragma once

#include "PanorelCore/Records/Models.h"

#include <QObject>

#include <functional>
#include <map>
#include <memory>

namespace Panorel {

class AppLog;
class SceneStudioWindow;
class UserDefaultsPort;
class WorkspacePort;

/// Opens scenes in the studio, each in a window of its own. Where the last one stood, and how
/// large, is remembered.
class SceneStudioController : public QObject {
    Q_OBJECT

public:
    /// All must outlive the controller.
    SceneStudioController(WorkspacePort &workspace, AppLog &log, const Clock &clock,
                          UserDefaultsPort &defaults);
    ~SceneStudioController() override;

    /// A scene that is open already comes to the front as it is. `onSave` gets a copy of `scene`
    /// with its windows edited, also when the stored one was changed or deleted meanwhile.
    void open(const SceneRecord &scene, std::function<void(const SceneRecord &)> onSave);

    /// Null while that scene is not open.
    SceneStudioWindow *window(const QUuid &scene) const;

    /// At the end of the session, which waits for no answer.
    void closeWithoutAsking();

private:
    struct DeleteLater {
        void operator()(SceneStudioWindow *window) const;
    };

    SceneStudioWindow &build(const SceneRecord &scene,
                             std::function<void(const SceneRecord &)> onSave);
    void closed(const QUuid &scene);

    WorkspacePort &m_workspace;
    AppLog &m_log;
    const Clock &m_clock;
    UserDefaultsPort &m_defaults;
    /// By scene. Deleted later: what closes a window runs inside of it.
    std::map<QUuid, std::unique_ptr<SceneStudioWindow, DeleteLater>> m_windows;
};

} // namespace Panorel
