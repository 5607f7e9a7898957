#include "PanorelCore/Files/Paths.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace Panorel::Paths {

QString dataDir()
{
    static const char variable[] = "PANOREL_DATA_DIR";
    if (qEnvironmentVariableIsSet(variable))
        return qEnvironmentVariable(variable);
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Panorel"));
}

QString file(const QString &name)
{
    const QDir directory(dataDir());
    if (!directory.exists()) {
        const QFileInfo info(directory.path());
        QDir().mkpath(info.absolutePath());
        QDir().mkdir(info.absoluteFilePath(),
                     QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
    }
    return directory.filePath(name);
}

} // namespace Panorel::Paths
