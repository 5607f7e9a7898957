#pragma once

#include "PanorelCore/Clock.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace Panorel {

class AppLog;

/// The file under a JSONStore, as bytes. What is on disk is never destroyed because it could not
/// be understood: it is moved aside as "NAME.corrupt-SECONDS" and the log says so.
class StoreFile {
public:
    /// `path` is used as given. Touches nothing on disk.
    StoreFile(const QString &path, AppLog &log, const Clock &clock);

    const QString &path() const { return m_path; }
    QString name() const;

    /// Absent, silently, where there is no file or it can't be read.
    std::optional<QByteArray> read();

    /// Moves the file, which was read but not understood, out of the way.
    void setCorruptAside(const QString &reason);

    /// Replaces the file whole; after a crash the old bytes or the new ones are there. A failure
    /// is logged, and then it returns false. A file that was there but could not be read is moved
    /// aside first, and nothing is written while it stands in the way.
    bool write(const QByteArray &bytes);

    void logSaveFailure(const QString &reason) const;

private:
    bool moveAside();

    QString m_path;
    AppLog &m_log;
    const Clock &m_clock;
    bool m_unreadable = false; ///< something is at the path, and its content is not known
};

} // namespace Panorel
