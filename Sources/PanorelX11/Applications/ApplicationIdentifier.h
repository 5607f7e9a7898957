#pragma once

#include "PanorelX11/Applications/DesktopList.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Panorel::X11 {

/// What a window says about whose it is, as read from its properties and unchecked.
struct ApplicationFacts {
    QByteArray gtkApplicationID; ///< _GTK_APPLICATION_ID
    QByteArray wmClassInstance;  ///< first text of WM_CLASS
    QByteArray wmClassClass;     ///< second text of WM_CLASS
    std::optional<qint64> pid;   ///< _NET_WM_PID
};

struct ApplicationIdentity {
    QString id;   ///< desktop-file id without ".desktop", or "wmclass:CLASS"; never empty
    QString name; ///< what the user calls the application; never empty
};

/// Tells which application a window belongs to. An application is a desktop file, not a process:
/// two terminals are one application, and one process can show windows of several.
///
/// Costs a few small reads from the process's folder, about 0.1 ms, so callers keep the answer for
/// as long as the window's facts stay the same.
class ApplicationIdentifier {
public:
    ApplicationIdentity identify(const ApplicationFacts &facts);

private:
    DesktopList m_installed;
};

} // namespace Panorel::X11
