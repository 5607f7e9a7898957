#include "PanorelX11/DesktopPicture/PlasmaPicture.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace Panorel::X11 {

namespace {

/// A file's URI in it can't end the text it stands in: no quote and no backslash is left as it is.
QString scriptFor(const PictureFile &picture)
{
    return QStringLiteral("desktops().forEach(function (desktop) {\n"
                          "    desktop.wallpaperPlugin = \"org.kde.image\";\n"
                          "    desktop.currentConfigGroup ="
                          " [\"Wallpaper\", \"org.kde.image\", \"General\"];\n"
                          "    desktop.writeConfig(\"Image\", \"%1\");\n"
                          "});\n")
        .replace(QLatin1String("%1"), picture.uri());
}

} // namespace

void PlasmaPicture::set(const PictureFile &picture)
{
    auto request = QDBusMessage::createMethodCall(
        QStringLiteral("org.kde.plasmashell"), QStringLiteral("/PlasmaShell"),
        QStringLiteral("org.kde.PlasmaShell"), QStringLiteral("evaluateScript"));
    request.setArguments({scriptFor(picture)});
    request.setAutoStartService(false); // where it doesn't run, something else shows the desktop
    QDBusConnection::sessionBus().send(request);
}

} // namespace Panorel::X11
