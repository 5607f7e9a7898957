#pragma once

#include <QString>

#include <memory>
#include <vector>

struct _GDesktopAppInfo;

namespace Panorel::X11 {

/// What the resolver needs of one installed application's desktop file.
struct DesktopEntry {
    QString id;   ///< the desktop-file id without ".desktop"
    QString name; ///< localised
    QString path;
    QString startupWMClass;
    QString executable; ///< base name of the program in Exec; empty for an interpreter
    bool isTerminalEmulator = false;
};

DesktopEntry describe(_GDesktopAppInfo *information);

/// The installed applications, also those that menus leave out. Read on first use and again after
/// a change in the folders of desktop files. One thread only; needs no event loop.
class DesktopList {
public:
    DesktopList();
    ~DesktopList();

    /// Sorted by id. Valid until the next call.
    const std::vector<DesktopEntry> &entries();

private:
    struct Watch;

    std::unique_ptr<Watch> m_watch;
    std::vector<DesktopEntry> m_entries;
};

} // namespace Panorel::X11
