#include "PanorelX11/Windows/X11Accessibility.h"

#include "PanorelX11/Windows/X11Window.h"

namespace Panorel::X11 {

namespace {

/// None for a handle that this port did not make.
xcb_window_t idOf(const WindowElementRef &element)
{
    const auto *window = dynamic_cast<const X11Window *>(element.get());
    return window ? window->id() : xcb_window_t(XCB_WINDOW_NONE);
}

} // namespace

X11Accessibility::X11Accessibility(ClientRegistry &registry, const ClientReader &reader,
                                   RecentReadings &readings, const WindowManager &windowManager,
                                   WindowPlacer &placer, WindowStacker &stacker, InputFocus &focus,
                                   HiddenWindows &hidden)
    : m_registry(registry), m_reader(reader), m_readings(readings), m_windowManager(windowManager),
      m_placer(placer), m_stacker(stacker), m_focus(focus), m_hidden(hidden)
{}

bool X11Accessibility::isTrusted() const
{
    return m_windowManager.isPresent();
}

std::vector<WindowAttributes> X11Accessibility::windows(ProcessIdentifier pid)
{
    const auto ids = m_registry.ordinaryWindows(pid);
    m_hidden.awaitRest(ids);
    const auto described = m_readings.describe(ids);
    std::vector<WindowAttributes> windows;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!described[i])
            continue;
        const ClientReading &reading = described[i]->reading;
        if (m_hidden.isUnderWay(ids[i]))
            m_readings.take(ids[i]); // no event would tell that its animation is over
        const Rect frame = reading.geometry.visibleFrame().toRect();
        windows.push_back({std::make_shared<X11Window>(ids[i]), frame.origin(), frame.size(),
                           described[i]->title, reading.isMinimized && !m_hidden.contains(ids[i]),
                           reading.isFullScreen});
    }
    return windows;
}

void X11Accessibility::apply(const WindowElementRef &window, std::optional<Point> position,
                             std::optional<Size> size)
{
    if (const auto id = idOf(window))
        m_placer.place(id, {position, size});
}

FrameReading X11Accessibility::readFrame(const WindowElementRef &window)
{
    const auto id = idOf(window);
    const auto frame = id ? m_placer.awaitFrame(id) : std::nullopt;
    if (!frame)
        return {};
    return {frame->toRect().origin(), frame->toRect().size()};
}

void X11Accessibility::raise(const std::vector<WindowElementRef> &backToFront)
{
    std::vector<xcb_window_t> ids;
    for (const WindowElementRef &window : backToFront) {
        if (const auto id = idOf(window))
            ids.push_back(id);
    }
    m_hidden.awaitRest(ids);
    m_stacker.raise(ids);
}

WindowElementRef X11Accessibility::focusedWindow()
{
    const auto clients = m_registry.frontToBack();
    const auto active = m_focus.activeWindow();
    m_hidden.processEvents();
    if (!clients || m_hidden.isWindowHidden(active))
        return nullptr;
    for (const auto &[window, facts] : *clients) {
        if (window == active && facts.isOrdinary() && facts.application != ApplicationNumbers::own)
            return std::make_shared<X11Window>(window);
    }
    return nullptr;
}

void X11Accessibility::focus(const WindowElementRef &window)
{
    const auto id = idOf(window);
    if (!id)
        return;
    m_hidden.awaitRest({id});
    m_hidden.releaseFocus();
    const auto reading = m_reader.read(id);
    if (reading && !reading->isMinimized && reading->isOnCurrentDesktop
        && !m_hidden.isWindowHidden(id))
        m_focus.moveTo(id);
}

} // namespace Panorel::X11
