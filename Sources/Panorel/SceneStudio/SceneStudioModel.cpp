#include "Panorel/SceneStudio/SceneStudioModel.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelPorts/WorkspacePort.h"

#include <algorithm>
#include <set>

namespace Panorel {

namespace {

constexpr double widthKeptInside = 60;
constexpr double heightKeptInside = 40;
constexpr Size smallestBox{200, 150};
constexpr Size newBox{900, 600};

/// The lower limit first: where the limits cross, the upper one holds.
double held(double value, double least, double most)
{
    return std::min(std::max(value, least), most);
}

} // namespace

SceneStudioModel::SceneStudioModel(const SceneRecord &scene, WorkspacePort &workspace, AppLog &log,
                                   const Clock &clock,
                                   std::function<void(const SceneRecord &)> onSave)
    : m_scene(scene), m_workspace(workspace), m_log(log), m_clock(clock),
      m_onSave(std::move(onSave))
{
    std::set<QString> running;
    for (const RunningApplication &application : m_workspace.runningApplications()) {
        if (application.bundleID)
            running.insert(*application.bundleID);
    }
    for (const WindowRecord &window : scene.layout.windows)
        m_boxes.push_back({m_nextID++, window, !running.contains(window.bundleID)});
}

const SceneStudioModel::Box *SceneStudioModel::box(int id) const
{
    const auto found = std::ranges::find(m_boxes, id, &Box::id);
    return found == m_boxes.end() ? nullptr : &*found;
}

SceneStudioModel::Box *SceneStudioModel::find(int id)
{
    return const_cast<Box *>(box(id));
}

Rect SceneStudioModel::bounds() const
{
    Rect bounds;
    for (const DisplayInfo &display : displays())
        bounds = bounds.united(display.frame);
    return bounds;
}

void SceneStudioModel::move(int id, Size by)
{
    Box *box = find(id);
    if (!box)
        return;
    const Box before = *box;
    Rect &frame = box->record.frame;
    frame.x += by.width;
    frame.y += by.height;
    if (!displays().empty()) {
        const Rect limits = bounds();
        frame.x = held(frame.x, limits.minX() - frame.width + widthKeptInside,
                       limits.maxX() - widthKeptInside);
        frame.y = held(frame.y, limits.minY(), limits.maxY() - heightKeptInside);
    }
    reassignDisplay(std::size_t(box - m_boxes.data()));
    if (*box != before)
        Q_EMIT changed();
}

void SceneStudioModel::resize(int id, Size by)
{
    Box *box = find(id);
    if (!box)
        return;
    const Box before = *box;
    Rect &frame = box->record.frame;
    frame.width = std::max(frame.width + by.width, smallestBox.width);
    frame.height = std::max(frame.height + by.height, smallestBox.height);
    reassignDisplay(std::size_t(box - m_boxes.data()));
    if (*box != before)
        Q_EMIT changed();
}

void SceneStudioModel::reassignDisplay(std::size_t index)
{
    WindowRecord &record = m_boxes[index].record;
    double largest = -1;
    for (const DisplayInfo &display : displays()) {
        const double area = display.frame.intersection(record.frame).area();
        if (area <= largest)
            continue;
        largest = area;
        record.displayUUID = display.uuid;
    }
}

void SceneStudioModel::removeBox(int id)
{
    if (std::erase_if(m_boxes, [id](const Box &box) { return box.id == id; }) > 0)
        Q_EMIT changed();
}

int SceneStudioModel::addApp(const QString &bundleID, const QString &appName)
{
    const Rect limits = bounds();
    Box box;
    box.id = m_nextID++;
    box.record.appName = appName;
    box.record.bundleID = bundleID;
    box.record.frame = {limits.x + (limits.width - newBox.width) / 2,
                        limits.y + (limits.height - newBox.height) / 2, newBox.width,
                        newBox.height};
    if (!displays().empty()) {
        const auto touched = std::ranges::find_if(displays(), [&](const DisplayInfo &display) {
            return display.frame.intersection(box.record.frame).area() > 0;
        });
        box.record.displayUUID =
            touched == displays().end() ? displays().front().uuid : touched->uuid;
    }
    m_boxes.push_back(box);
    Q_EMIT changed();
    return box.id;
}

std::vector<SceneStudioModel::App> SceneStudioModel::addableApps()
{
    std::vector<App> apps;
    for (const RunningApplication &application : m_workspace.runningApplications()) {
        const bool isOrdinary = application.policy == ActivationPolicy::Regular
                                && application.bundleID
                                && application.pid != m_workspace.ownProcessIdentifier();
        const auto isOf = [&](const Box &box) {
            return box.record.bundleID == application.bundleID;
        };
        if (isOrdinary && std::ranges::none_of(m_boxes, isOf))
            apps.push_back(
                {*application.bundleID, application.localizedName.value_or(*application.bundleID)});
    }
    std::ranges::stable_sort(apps, {}, &App::name);
    return apps;
}

void SceneStudioModel::setBoxes(const std::vector<Box> &boxes)
{
    if (boxes == m_boxes)
        return;
    m_boxes = boxes;
    Q_EMIT changed();
}

void SceneStudioModel::save()
{
    SceneRecord edited = m_scene;
    edited.layout.windows.clear();
    for (const Box &box : m_boxes) {
        edited.layout.windows.push_back(box.record);
        edited.layout.windows.back().zOrder = qint64(edited.layout.windows.size()) - 1;
    }
    edited.layout.savedAt = m_clock.now();
    const auto ghosts = std::ranges::count_if(m_boxes, &Box::isGhost);
    m_log.log(QStringLiteral("scene edited: %1 boxes (%2 ghost)").arg(m_boxes.size()).arg(ghosts));
    m_onSave(edited);
}

} // namespace Panorel
