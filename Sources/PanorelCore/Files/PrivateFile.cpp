#include "PanorelCore/Files/PrivateFile.h"

#include <QSaveFile>

namespace Panorel {

namespace {

/// A disk that fills up takes a part first, which QSaveFile does not hold against it and would
/// commit; only what comes after the part fails.
bool writeAll(QSaveFile &file, QByteArray bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes);
        if (written <= 0)
            return false;
        bytes.remove(0, written);
    }
    return true;
}

} // namespace

std::optional<QString> PrivateFile::write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        if (writeAll(file, bytes) && file.commit())
            return {};
    }
    return file.errorString();
}

} // namespace Panorel
