#include "Core/IndexedDesktop.h"

#include "PanorelCore/Records/Models.h"

namespace Panorel {

struct IndexedDesktop::Window final : WindowElement {
    ProcessIdentifier pid = 0;
    QString title;
    Rect frame;

    static Window &of(const WindowElementRef &element)
    {
        return const_cast<Window &>(static_cast<const Window &>(*element));
    }
};

IndexedDesktop::IndexedDesktop(const std::vector<WindowRecord> &records)
{
    constexpr ProcessIdentifier firstPID = 100;
    std::map<QString, ProcessIdentifier> numbers;
    for (const WindowRecord &record : records) {
        const auto next = firstPID + ProcessIdentifier(numbers.size());
        const auto [entry, isNew] = numbers.try_emplace(record.bundleID, next);
        if (isNew)
            m_applications.push_back(
                {entry->second, ActivationPolicy::Regular, record.bundleID, record.appName, false});
        auto window = std::make_shared<Window>();
        window->pid = entry->second;
        window->title = record.title;
        window->frame = record.frame;
        m_frontToBack.push_back(window);
        m_byApplication[entry->second].push_back(std::move(window));
    }
}

std::vector<WindowAttributes> IndexedDesktop::windows(ProcessIdentifier pid)
{
    std::vector<WindowAttributes> found;
    for (const auto &window : m_byApplication[pid])
        found.push_back(
            {window, window->frame.origin(), window->frame.size(), window->title, false, false});
    return found;
}

void IndexedDesktop::apply(const WindowElementRef &window, std::optional<Point> position,
                           std::optional<Size> size)
{
    Rect &frame = Window::of(window).frame;
    frame = Rect::of(position.value_or(frame.origin()), size.value_or(frame.size()));
}

FrameReading IndexedDesktop::readFrame(const WindowElementRef &window)
{
    const Rect &frame = Window::of(window).frame;
    return {frame.origin(), frame.size()};
}

std::optional<std::vector<WindowListEntry>> IndexedDesktop::onScreenWindows()
{
    std::vector<WindowListEntry> entries;
    for (const auto &window : m_frontToBack)
        entries.push_back({0, window->pid, window->frame, 1.0});
    return entries;
}

} // namespace Panorel
