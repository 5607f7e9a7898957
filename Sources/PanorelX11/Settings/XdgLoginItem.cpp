#include "PanorelX11/Settings/XdgLoginItem.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

#include <algorithm>

namespace Panorel::X11 {

namespace {

const QString fileName = QStringLiteral("autostart/org.panorel.Panorel.desktop");

QString filePath()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(fileName);
}

/// Whether the administrator has put a file there, which is in force where the user has none.
bool isThereForEverybody()
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    folders.removeFirst(); // the user's own
    return std::ranges::any_of(folders, [](const QString &folder) {
        return QFile::exists(QDir(folder).filePath(fileName));
    });
}

/// The path as a value of Exec, which is unescaped three times: as a value of the file, as a
/// quoted argument and for its field codes.
QString execValue(const QString &program)
{
    QString argument;
    for (const QChar character : program) {
        if (QStringLiteral("\"`$\\").contains(character))
            argument += QLatin1Char('\\');
        argument += character;
    }
    argument.replace(QLatin1Char('%'), QLatin1String("%%"));
    argument.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    argument.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    argument.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    argument.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    return QLatin1Char('"') + argument + QLatin1Char('"');
}

} // namespace

XdgLoginItem::XdgLoginItem(const QString &program) : m_program(program) {}

void XdgLoginItem::setRegistered(bool registered)
{
    const QString path = filePath();
    if (!registered && !isThereForEverybody()) {
        QFile::remove(path);
        return;
    }
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    const QByteArray entry =
        QStringLiteral("[Desktop Entry]\n"
                       "Type=Application\n"
                       "Name=Panorel\n"
                       "Comment=Keeps every window where you left it\n"
                       "Exec=%1\n"
                       "Terminal=false\n"
                       "Hidden=%2\n")
            .arg(execValue(m_program), QLatin1String(registered ? "false" : "true"))
            .toUtf8();
    if (file.write(entry) == entry.size()) // or else it is dropped
        file.commit();
}

} // namespace Panorel::X11
