#include "PanorelX11/Displays/X11Screens.h"

#include "PanorelX11/Displays/WorkArea.h"

namespace Panorel::X11 {

X11Screens::X11Screens(EventConnection &events)
    : m_connection(events.connection()), m_randr(m_connection),
      m_changed(std::make_shared<Callback>())
{
    if (!m_randr.isAvailable())
        return;
    events.addListener([changed = m_changed, first = m_randr.firstEvent()](const auto &event) {
        const Callback callback = *changed; // it may be replaced while it runs
        if (callback && RandR::isDisplayChange(event, first))
            callback();
    });
    m_randr.selectDisplayChanges();
}

X11Screens::~X11Screens()
{
    *m_changed = nullptr;
}

std::vector<Screen> X11Screens::screens()
{
    std::vector<Monitor> monitors = m_randr.monitors();
    const Size rootSize = readRootSize(m_connection).value_or(Size{});
    const std::vector<Strut> struts = readStruts(m_connection);
    for (Monitor &monitor : monitors)
        monitor.visibleFrame = workArea(monitor.frame, struts, rootSize);
    return screenList(std::move(monitors));
}

std::vector<Screen> X11Screens::screensIgnoringPanels()
{
    return screenList(m_randr.monitors());
}

DisplayIdentity X11Screens::identity(DisplayNumber display)
{
    const auto output = m_randr.output(display);
    return output ? output->identity() : DisplayIdentity{};
}

void X11Screens::setChangeCallback(std::function<void()> changed)
{
    *m_changed = std::move(changed);
}

} // namespace Panorel::X11
