#include "PanorelCore/Files/Paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace Panorel::Paths {

namespace {

constexpr auto variable = "PANOREL_DATA_DIR";
constexpr auto ownFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr auto ownFolder = ownFile | QFileDevice::ExeOwner;

bool isOpenToOthers(QFileDevice::Permissions permissions)
{
    constexpr QFileDevice::Permissions others(0x0077);
    return permissions & others;
}

} // namespace

QString dataDir()
{
    if (qEnvironmentVariableIsSet(variable))
        return qEnvironmentVariable(variable);
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Panorel"));
}

QString file(const QString &name)
{
    const QString path = dataDir();
    makeDirectory(path);
    if (!qEnvironmentVariableIsSet(variable) && isOpenToOthers(QFile::permissions(path)))
        QFile::setPermissions(path, ownFolder);
    return QDir(path).filePath(name);
}

void makeDirectory(const QString &path)
{
    const QDir directory(path); // an empty path is the current one
    if (directory.exists())
        return;
    const QFileInfo info(directory.path());
    QDir().mkpath(info.absolutePath());
    QDir().mkdir(info.absoluteFilePath(), ownFolder);
}

void keepPrivate(QFile &file)
{
    if (isOpenToOthers(file.permissions()))
        file.setPermissions(ownFile);
}

} // namespace Panorel::Paths
