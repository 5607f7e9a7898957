#include "PanorelX11/Calendar/DesktopCalendar.h"

namespace Panorel::X11 {

DesktopCalendar::DesktopCalendar(AppLog &, const Clock &) {}

CalendarAuthorization DesktopCalendar::authorization()
{
    return CalendarAuthorization::Denied;
}

void DesktopCalendar::requestAccess(std::function<void(bool granted)> completion)
{
    completion(authorization() == CalendarAuthorization::FullAccess);
}

void DesktopCalendar::events(Instant, Instant, std::function<void(const Events &events)> completion)
{
    completion({});
}

} // namespace Panorel::X11
