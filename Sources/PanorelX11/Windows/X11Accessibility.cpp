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
                                   const WindowManager &windowManager, WindowPlacer &placer,
                                   WindowStacker &stacker)
    : m_registry(registry), m_reader(reader), m_windowManager(windowManager), m_placer(placer),
      m_stacker(stacker)
{}

bool X11Accessibility::isTrusted() const
{
    return m_windowManager.isPresent();
}

std::vector<WindowAttributes> X11Accessibility::windows(ProcessIdentifier pid)
{
    std::vector<xcb_window_t> ids;
    for (const auto &client :
         m_registry.frontToBack().value_or(std::vector<ClientRegistry::Client>{})) {
        if (client.facts.application == pid && client.facts.isOrdinary())
            ids.push_back(client.window);
    }
    const auto readings = m_reader.read(ids);
    const auto titles = m_reader.titles(ids);
    std::vector<WindowAttributes> windows;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        if (!readings[i])
            continue;
        m_placer.remember(ids[i], *readings[i]);
        const Rect frame = readings[i]->geometry.visibleFrame().toRect();
        windows.push_back({std::make_shared<X11Window>(ids[i]), frame.origin(), frame.size(),
                           titles[i], readings[i]->isMinimized, readings[i]->isFullScreen});
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
    m_stacker.raise(ids);
}

WindowElementRef X11Accessibility::focusedWindow()
{
    return nullptr;
}

void X11Accessibility::focus(const WindowElementRef &) {}

} // namespace Panorel::X11
