#include "Panorel/SceneStudio/SceneStudioController.h"

#include "Panorel/SceneStudio/SceneStudioWindow.h"
#include "PanorelPorts/UserDefaultsPort.h"

#include <QScreen>

namespace Panorel {

namespace {

const QString frameKey = QStringLiteral("studio");

} // namespace

void SceneStudioController::DeleteLater::operator()(SceneStudioWindow *window) const
{
    window->deleteLater();
}

SceneStudioController::SceneStudioController(WorkspacePort &workspace, AppLog &log,
                                             const Clock &clock, UserDefaultsPort &defaults)
    : m_workspace(workspace), m_log(log), m_clock(clock), m_defaults(defaults)
{}

SceneStudioController::~SceneStudioController()
{
    for (auto &[scene, window] : m_windows)
        delete window.release(); // there may be no event loop any more
}

void SceneStudioController::open(const SceneRecord &scene,
                                 std::function<void(const SceneRecord &)> onSave)
{
    SceneStudioWindow *window = this->window(scene.id);
    if (!window)
        window = &build(scene, std::move(onSave));
    if (window->isMinimized())
        window->showNormal();
    else
        window->show();
    window->raise();
    window->activateWindow();
}

SceneStudioWindow *SceneStudioController::window(const QUuid &scene) const
{
    const auto found = m_windows.find(scene);
    return found == m_windows.end() ? nullptr : found->second.get();
}

SceneStudioWindow &SceneStudioController::build(const SceneRecord &scene,
                                                std::function<void(const SceneRecord &)> onSave)
{
    constexpr QSize usualSize{960, 640};
    auto *window = new SceneStudioWindow(scene, m_workspace, m_log, m_clock, std::move(onSave));
    m_windows[scene.id].reset(window);
    window->resize(usualSize);
    const std::optional<QByteArray> frame = m_defaults.data(frameKey);
    if (!frame || !window->restoreGeometry(*frame)) {
        QRect area(QPoint(), usualSize);
        area.moveCenter(window->screen()->availableGeometry().center());
        window->setGeometry(area);
    }
    connect(window, &SceneStudioWindow::closing, this, [this, id = scene.id] { closed(id); });
    return *window;
}

void SceneStudioController::closed(const QUuid &scene)
{
    m_defaults.setData(frameKey, window(scene)->saveGeometry());
    disconnect(window(scene), nullptr, this, nullptr);
    m_windows.erase(scene);
}

void SceneStudioController::closeWithoutAsking()
{
    while (!m_windows.empty())
        m_windows.begin()->second->discard();
}

} // namespace Panorel
