#include "PanorelX11/Windows/ApplicationList.h"

#include <map>

namespace Panorel::X11 {

std::vector<RunningApplication> applicationsOf(const std::vector<ClientRegistry::Client> &clients)
{
    std::map<ProcessIdentifier, RunningApplication> applications;
    for (const auto &[window, facts] : clients) {
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

} // namespace Panorel::X11
