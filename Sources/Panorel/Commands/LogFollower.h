#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace Panorel {

/// Reads the log from its beginning, and then what is added to it. A log that was deleted or
/// emptied is read anew from its beginning; one that does not exist yet is waited for.
class LogFollower {
public:
    /// `write` gets whole lines only, with their line feeds.
    LogFollower(const QString &path, std::function<void(const QByteArray &lines)> write);

    /// Everything there is to read now.
    void readOn();

private:
    QString m_path;
    std::function<void(const QByteArray &)> m_write;
    qint64 m_position = 0;
    quint64 m_file = 0; ///< which file it was, should another take its name
};

} // namespace Panorel
