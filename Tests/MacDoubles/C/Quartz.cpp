#include "MacDoubles/C/CfObjects.h"

#include <ColorSync/ColorSync.h>

#include <algorithm>
#include <cstring>
#include <thread>

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

using Receiver = std::pair<CGDisplayReconfigurationCallBack, void *>;

std::vector<Receiver> receivers;

/// As the system does it, from a thread of its own and in several steps.
void reconfigure()
{
    std::thread([told = receivers] {
        for (const CGDisplayChangeSummaryFlags flags :
             {kCGDisplayBeginConfigurationFlag, kCGDisplayMovedFlag}) {
            for (const auto &[callback, userInfo] : told)
                callback(1, flags, userInfo);
        }
    }).join();
}

const DisplayIdentity *find(CGDirectDisplayID number)
{
    for (const auto &display : desktop().platform.display.displays) {
        if (display.screen.displayNumber == number)
            return &display.identity;
    }
    return nullptr;
}

std::uint32_t numberOf(CGDirectDisplayID display, std::uint32_t DisplayIdentity::*number)
{
    const DisplayIdentity *identity = find(display);
    return identity ? identity->*number : 0xffffffff;
}

QVariantMap described(const WindowListEntry &entry)
{
    const Rect frame = entry.bounds.value();
    const QVariantMap bounds{{QStringLiteral("X"), frame.x},
                             {QStringLiteral("Y"), frame.y},
                             {QStringLiteral("Width"), frame.width},
                             {QStringLiteral("Height"), frame.height}};
    return {{QStringLiteral("kCGWindowLayer"), qlonglong(entry.layer.value())},
            {QStringLiteral("kCGWindowOwnerPID"), entry.ownerPID.value()},
            {QStringLiteral("kCGWindowAlpha"), entry.alpha.value_or(1)},
            {QStringLiteral("kCGWindowBounds"), bounds}};
}

} // namespace

extern "C" {

const CFStringRef kCGWindowLayer = CFSTR("kCGWindowLayer");
const CFStringRef kCGWindowOwnerPID = CFSTR("kCGWindowOwnerPID");
const CFStringRef kCGWindowBounds = CFSTR("kCGWindowBounds");
const CFStringRef kCGWindowAlpha = CFSTR("kCGWindowAlpha");

CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option, CGWindowID)
{
    if (option != (kCGWindowListOptionOnScreenOnly | kCGWindowListExcludeDesktopElements))
        desktop().faults << QStringLiteral("windows that nobody sees were asked for");
    const auto entries = desktop().platform.desktop.onScreenWindows();
    if (!entries)
        return nullptr;
    QVariantList list;
    for (const WindowListEntry &entry : *entries)
        list << described(entry);
    return static_cast<CFArrayRef>(toCf(list));
}

bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect *rect)
{
    const auto &members = objectOf(dictionary, CfType::Dictionary);
    double values[4];
    std::size_t next = 0;
    for (const char *key : {"X", "Y", "Width", "Height"}) {
        const CFTypeRef value = members.find(doubleOfConstantString(key));
        if (!value)
            return false;
        values[next++] = objectOf(value).value.toDouble();
    }
    *rect = {{values[0], values[1]}, {values[2], values[3]}};
    return true;
}

boolean_t CGDisplayIsOnline(CGDirectDisplayID display)
{
    return find(display) != nullptr;
}
boolean_t CGDisplayIsBuiltin(CGDirectDisplayID display)
{
    const DisplayIdentity *identity = find(display);
    return identity && identity->isBuiltin;
}
std::uint32_t CGDisplayVendorNumber(CGDirectDisplayID display)
{
    return numberOf(display, &DisplayIdentity::vendorNumber);
}
std::uint32_t CGDisplayModelNumber(CGDirectDisplayID display)
{
    return numberOf(display, &DisplayIdentity::modelNumber);
}
std::uint32_t CGDisplaySerialNumber(CGDirectDisplayID display)
{
    return numberOf(display, &DisplayIdentity::serialNumber);
}
CFUUIDRef CGDisplayCreateUUIDFromDisplayID(std::uint32_t display)
{
    const DisplayIdentity *identity = find(display);
    if (!identity || !identity->uuid)
        return nullptr;
    return make<CFUUIDRef>(CfType::Uuid, *identity->uuid);
}

CGError CGDisplayRegisterReconfigurationCallback(CGDisplayReconfigurationCallBack callback,
                                                 void *userInfo)
{
    receivers.emplace_back(callback, userInfo);
    desktop().platform.display.setChangeCallback(reconfigure);
    return kCGErrorSuccess;
}

CGError CGDisplayRemoveReconfigurationCallback(CGDisplayReconfigurationCallBack callback,
                                               void *userInfo)
{
    std::erase(receivers, Receiver(callback, userInfo));
    return kCGErrorSuccess;
}

} // extern "C"
