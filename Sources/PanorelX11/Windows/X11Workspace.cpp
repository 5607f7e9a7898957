#include "PanorelX11/Windows/X11Workspace.h"

#include "PanorelX11/Windows/ApplicationList.h"

namespace Panorel::X11 {

std::vector<RunningApplication> X11Workspace::runningApplications()
{
    const auto clients = m_registry.frontToBack();
    if (!clients)
        return {};
    auto applications = applicationsOf(*clients);
    for (RunningApplication &application : applications)
        application.isHidden = m_hidden.isApplicationHidden(application.pid);
    return applications;
}

} // namespace Panorel::X11
