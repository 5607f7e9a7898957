#pragma once

#include "PanorelCore/Clock.h"

#include <QByteArray>
#include <QString>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace Panorel {

/// The one diagnostic log: a text file, one line per message, "[time] message". Line feeds in a
/// message are written as given. Messages begin with the area that writes them ("store: ").
///
/// The caller never waits for the disk: a thread of its own opens, appends to and closes the file
/// each time, so a log that is deleted comes back with the next line. What is queued is written
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
    void writeAll();
    void append(const QByteArray &lines);

    const Clock &m_clock;
    bool m_reportedLoss = false; ///< the writer's own
    std::mutex m_mutex;
    std::condition_variable m_changed;
    QByteArray m_lines; ///< they stay until they are written
    bool m_isEnding = false;
    // No QThread: its event dispatcher ends the process where no descriptor is left. Begins last.
    std::thread m_writer{[this] { writeAll(); }};
};

} // namespace Panorel
