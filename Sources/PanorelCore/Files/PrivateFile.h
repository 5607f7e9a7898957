#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Panorel::PrivateFile {

/// Replaces the file whole, readable by its user only; after a crash the old bytes or the new
/// ones are there. Absent: done; otherwise why not, and the old file stands. The new one is written
/// beside it under a name that is always the same, so a process that is killed here leaves one at
/// most, which the next write replaces.
std::optional<QString> write(const QString &path, const QByteArray &bytes);

} // namespace Panorel::PrivateFile
