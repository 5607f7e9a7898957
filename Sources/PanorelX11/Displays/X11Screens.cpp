#include "PanorelX11/Displays/X11Screens.h"

namespace Panorel::X11 {

X11Screens::X11Screens(EventConnection &events)
    : m_randr(events.connection()), m_changed(std::make_shared<Callback>())
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
