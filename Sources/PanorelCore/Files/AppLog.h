#pragma once

#include "PanorelCore/Clock.h"

#include <QString>
#include <QThreadPool>

#include <atomic>

namespace Panorel {

/// The one diagnostic log: a text file, one line per message, "[time] message". Line feeds in a
/// message are written as given. Messages begin with the area that writes them ("store: ").
///
/// The caller never waits for the disk: a serial queue opens, appends to and closes the file for
/// every line, so a log that is deleted comes back with the next line. What is queued is written
/// before the log is destroyed. A line that can't be written is lost; the first such loss is said
/// on stderr, there being no other channel.
class AppLog {
public:
    /// The log of the process, on the system's clock.
    static AppLog &shared();

    explicit AppLog(const Clock &clock);
    ~AppLog();

    /// The time stamp is that of the call. May be called from any thread.
    void log(const QString &message);

    /// Returns when every line logged so far is written.
    void flush();

private:
    void append(const QByteArray &line);

    const Clock &m_clock;
    std::atomic<bool> m_reportedLoss = false;
    QThreadPool m_queue; // last: its destruction runs what is queued
};

} // namespace Panorel
