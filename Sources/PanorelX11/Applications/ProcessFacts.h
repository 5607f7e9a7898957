#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Panorel::X11 {

/// What a process shows of how it was started. Every part is as the process or whoever started it
/// wrote it, and empty where it can't be read.
struct ProcessFacts {
    qint64 pid = 0;
    QByteArray cgroup;              ///< the text of its cgroup file
    QString launchedDesktopFile;    ///< path of the desktop file that the launcher named
    std::optional<qint64> launched; ///< the process for which the launcher named it
    QString executable;             ///< base name of the program file
    QString argument0;              ///< base name of what it was called as
};

/// Absent where the process is gone, or was replaced by another while it was read.
std::optional<ProcessFacts> readProcessFacts(qint64 pid);

/// When a process started, from the text of its stat file; empty where that is cut off.
QByteArray startTimeIn(const QByteArray &stat);

/// The base name of what a process was called as, from a NUL-separated command line.
QString calledAs(const QByteArray &commandLine);

/// Takes the launcher's two variables from a NUL-separated environment.
void readLauncher(const QByteArray &environment, ProcessFacts &facts);

} // namespace Panorel::X11
