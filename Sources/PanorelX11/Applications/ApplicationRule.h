#pragma once

#include "PanorelX11/Applications/ApplicationIdentifier.h"
#include "PanorelX11/Applications/DesktopList.h"
#include "PanorelX11/Applications/ProcessFacts.h"

namespace Panorel::X11 {

/// Which of the installed applications a window belongs to: facts in, entry out. The first hit of
///  1. the application id that GTK puts on the window;
///  2. the control group that a desktop session starts each application in;
///  3. the desktop file that the launcher named, if it launched this very process;
///  4. StartupWMClass equal to the instance of WM_CLASS;
///  5. StartupWMClass equal to its class, then in any case;
///  6. an id equal to instance or class in any case, whole or by its last dotted part;
///  7. the program's name, where one application alone starts it.
/// Ties go to the first id in order.
///
/// 2 and 3 are about the process, 4 to 6 about the window. Where they differ the window's word
/// counts, since one process can show windows of several applications (an office suite) and hands
/// its control group to all that it starts; but a terminal's window belongs to the application
/// that runs in it.
///
/// Null: none; `process` is null where there is no process to ask.
const DesktopEntry *resolveApplication(const std::vector<DesktopEntry> &installed,
                                       const ApplicationFacts &facts, const ProcessFacts *process);

/// The identity of a window that no installed application claims: "wmclass:" and its class.
ApplicationIdentity unclaimedIdentity(const ApplicationFacts &facts);

} // namespace Panorel::X11
