#include "PanorelMac/Applications/MacWorkspace.h"

#include "PanorelMac/Support/NsText.h"
#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

namespace Panorel::Mac {

namespace {

ActivationPolicy policyOf(NSRunningApplication *application)
{
    switch (application.activationPolicy) {
    case NSApplicationActivationPolicyRegular:
        return ActivationPolicy::Regular;
    case NSApplicationActivationPolicyAccessory:
        return ActivationPolicy::Accessory;
    case NSApplicationActivationPolicyProhibited:
        break;
    }
    return ActivationPolicy::Prohibited;
}

RunningApplication describe(NSRunningApplication *application)
{
    return {application.processIdentifier, policyOf(application),
            textOf(application.bundleIdentifier), textOf(application.localizedName),
            bool(application.isHidden)};
}

NSRunningApplication *find(ProcessIdentifier pid)
{
    return [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
}

} // namespace

/// Listens from its making to its end. What is on its way at the end is not told any more.
class MacWorkspace::LaunchObserver {
public:
    using Launched = std::function<void(const RunningApplication &)>;

    explicit LaunchObserver(Launched launched)
        : m_launched(std::make_shared<Launched>(std::move(launched)))
    {
        const std::weak_ptr<Launched> held = m_launched;
        m_token = Retained<id>::share([center()
            addObserverForName:NSWorkspaceDidLaunchApplicationNotification
                        object:nil
                         queue:NSOperationQueue.mainQueue
                    usingBlock:^(NSNotification *notification) {
                      tell(held, [notification.userInfo objectForKey:NSWorkspaceApplicationKey]);
                    }]);
    }
    ~LaunchObserver() { [center() removeObserver:m_token.get()]; }
    LaunchObserver(const LaunchObserver &) = delete;
    LaunchObserver &operator=(const LaunchObserver &) = delete;

private:
    static NSNotificationCenter *center() { return NSWorkspace.sharedWorkspace.notificationCenter; }

    static void tell(const std::weak_ptr<Launched> &held, id application)
    {
        @autoreleasepool {
            const std::shared_ptr<Launched> launched = held.lock();
            if (launched && [application isKindOfClass:NSRunningApplication.class])
                (*launched)(describe(application));
        }
    }

    std::shared_ptr<Launched> m_launched;
    Retained<id> m_token;
};

MacWorkspace::MacWorkspace() = default;

MacWorkspace::~MacWorkspace()
{
    setLaunchCallback({});
}

std::vector<RunningApplication> MacWorkspace::runningApplications()
{
    @autoreleasepool {
        std::vector<RunningApplication> running;
        for (NSRunningApplication *application in NSWorkspace.sharedWorkspace.runningApplications)
            running.push_back(describe(application));
        return running;
    }
}

ProcessIdentifier MacWorkspace::ownProcessIdentifier() const
{
    @autoreleasepool {
        return NSRunningApplication.currentApplication.processIdentifier;
    }
}

void MacWorkspace::hide(ProcessIdentifier pid)
{
    @autoreleasepool {
        [find(pid) hide];
    }
}

void MacWorkspace::unhide(ProcessIdentifier pid)
{
    @autoreleasepool {
        [find(pid) unhide];
    }
}

void MacWorkspace::setLaunchCallback(std::function<void(const RunningApplication &)> launched)
{
    @autoreleasepool {
        m_launchObserver.reset();
        if (launched)
            m_launchObserver = std::make_unique<LaunchObserver>(std::move(launched));
    }
}

} // namespace Panorel::Mac
