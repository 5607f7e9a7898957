#include "PanorelX11/Settings/XdgLoginItem.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>

namespace Panorel::X11 {

namespace {

QString filePath()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("autostart/org.panorel.Panorel.desktop"));
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
    if (!registered) {
        QFile::remove(path);
        return;
    }
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return;
    const QByteArray entry = QStringLiteral("[Desktop Entry]\n"
                                            "Type=Application\n"
                                            "Name=Panorel\n"
                                            "Comment=Keeps every window where you left it\n"
                                            "Exec=%1\n"
                                            "Terminal=false\n")
                                 .arg(execValue(m_program))
                                 .toUtf8();
    if (file.write(entry) == entry.size()) // or else it is dropped
        file.commit();
}

} // namespace Panorel::X11
