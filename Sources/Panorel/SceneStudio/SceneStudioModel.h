#pragma once

#include "PanorelCore/Records/Models.h"

#include <QObject>

#include <functional>
#include <vector>

namespace Panorel {

class AppLog;
class WorkspacePort;

/// A scene while its windows are rearranged by hand. It works on a copy: nothing reaches the
/// scene before save(). Frames are in the global top-left space. One for each opening of the
/// editor.
class SceneStudioModel : public QObject {
    Q_OBJECT

public:
    /// One window of the scene.
    struct Box {
        int id = 0; ///< unique while the editor is open
        WindowRecord record;
        bool isGhost = false; ///< its application is not running

        bool operator==(const Box &) const = default;
    };
    /// An application that the scene lacks.
    struct App {
        QString bundleID;
        QString name;

        bool operator==(const App &) const = default;
    };

    /// `onSave` gets the edited scene. The ports must outlive the model.
    SceneStudioModel(const SceneRecord &scene, WorkspacePort &workspace, AppLog &log,
                     const Clock &clock, std::function<void(const SceneRecord &)> onSave);

    const QString &sceneName() const { return m_scene.name; }
    const std::vector<DisplayInfo> &displays() const { return m_scene.layout.displays; }
    const std::vector<Box> &boxes() const { return m_boxes; } ///< front to back
    /// Null for an unknown id.
    const Box *box(int id) const;
    /// Around all displays; null without any.
    Rect bounds() const;

    /// At least 60 of its width and 40 below its top edge stay within the bounds.
    void move(int id, Size by);
    /// At the lower right corner, to no less than 200 x 150.
    void resize(int id, Size by);
    void removeBox(int id);
    /// In the middle of all displays, behind the others. Returns the new box's id.
    int addApp(const QString &bundleID, const QString &appName);

    /// Running ordinary applications without a box, by name. Not Panorel itself, whose windows no
    /// scene places.
    std::vector<App> addableApps();

    /// The boxes as they were at some time before: an editor's undo.
    void setBoxes(const std::vector<Box> &boxes);

    void save();

Q_SIGNALS:
    /// Some box is not what it was.
    void changed();

private:
    Box *find(int id);
    void reassignDisplay(std::size_t index);

    SceneRecord m_scene;
    WorkspacePort &m_workspace;
    AppLog &m_log;
    const Clock &m_clock;
    std::function<void(const SceneRecord &)> m_onSave;
    std::vector<Box> m_boxes;
    int m_nextID = 0;
};

} // namespace Panorel
