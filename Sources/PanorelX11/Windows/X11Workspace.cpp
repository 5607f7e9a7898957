#include "PanorelX11/Windows/X11Workspace.h"

#include <map>

namespace Panorel::X11 {

std::vector<RunningApplication> X11Workspace::runningApplications()
{
    std::map<ProcessIdentifier, RunningApplication> applications;
    const auto clients = m_registry.frontToBack();
    if (!clients)
        return {};
    for (const auto &[window, facts] : *clients) {
        const auto [entry, isNew] = applications.try_emplace(facts.application);
        RunningApplication &application = entry->second;
        if (isNew) {
            application.pid = facts.application;
            application.policy = ActivationPolicy::Accessory;
            if (!facts.identity.id.isEmpty())
                application.bundleID = facts.identity.id;
            if (!facts.identity.name.isEmpty())
                application.localizedName = facts.identity.name;
        }
        if (facts.isOnTaskBar)
            application.policy = ActivationPolicy::Regular;
    }
    std::vector<RunningApplication> list;
    for (auto &[number, application] : applications)
        list.push_back(std::move(application));
    return list;
}

void X11Workspace::hide(ProcessIdentifier) {}

void X11Workspace::unhide(ProcessIdentifier) {}

void X11Workspace::setLaunchCallback(std::function<void(const RunningApplication &)>) {}

} // namespace Panorel::X11
