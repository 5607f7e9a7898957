#include "PanorelMac/Displays/ReconfigurationCallback.h"

#include <CoreGraphics/CoreGraphics.h>
#include <QCoreApplication>

#include <map>

namespace Panorel::Mac {

namespace {

using Changed = std::function<void()>;

/// By token, main thread only. The system gets a token and no pointer: an event of another thread
/// may be under way when its receiver goes.
std::map<std::uintptr_t, Changed> &receivers()
{
    static std::map<std::uintptr_t, Changed> all;
    return all;
}

void tell(std::uintptr_t token)
{
    const auto receiver = receivers().find(token);
    if (receiver == receivers().end())
        return;
    const Changed changed = receiver->second; // it may be removed while it runs
    changed();
}

/// On any thread.
void reconfigured(CGDirectDisplayID, CGDisplayChangeSummaryFlags, void *userInfo)
{
    const auto token = reinterpret_cast<std::uintptr_t>(userInfo);
    if (QCoreApplication *application = QCoreApplication::instance(); application && token)
        QMetaObject::invokeMethod(
            application, [token] { tell(token); }, Qt::QueuedConnection);
}

void *userInfoOf(std::uintptr_t token)
{
    return reinterpret_cast<void *>(token);
}

std::uintptr_t nextToken()
{
    static std::uintptr_t last = 0;
    return ++last;
}

} // namespace

ReconfigurationCallback::ReconfigurationCallback(std::function<void()> changed)
    : m_token(nextToken())
{
    receivers()[m_token] = std::move(changed);
    CGDisplayRegisterReconfigurationCallback(reconfigured, userInfoOf(m_token));
}

ReconfigurationCallback::~ReconfigurationCallback()
{
    CGDisplayRemoveReconfigurationCallback(reconfigured, userInfoOf(m_token));
    receivers().erase(m_token);
}

} // namespace Panorel::Mac
