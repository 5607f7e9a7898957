#include "PanorelX11/Applications/ApplicationRule.h"

#include "Fuzz/Fuzz.h"
#include "Support/TestDataDir.h"

#include <gio/gdesktopappinfo.h>

using namespace Panorel;
using namespace Panorel::X11;
using Fuzz::require;

namespace {

void check(const QByteArray &input)
{
    TestDataDir dir;
    const QString name = QStringLiteral("org.example.Editor.desktop");
    dir.write(name, input);
    GDesktopAppInfo *information =
        g_desktop_app_info_new_from_filename(dir.path(name).toUtf8().constData());
    if (!information)
        return;
    const DesktopEntry entry = describe(information);
    g_object_unref(information);
    require(entry.id == QLatin1String("org.example.Editor") && entry.path == dir.path(name),
            "an application is known by its file");
    require((entry.name + entry.startupWMClass + entry.executable).isValidUtf16(),
            "every text is valid");
    require(!entry.executable.contains(u'/'), "a program goes by its name alone");
    const QByteArray wmClass = entry.startupWMClass.toUtf8();
    if (!wmClass.isEmpty() && wmClass.size() <= 256)
        require(resolveApplication({entry}, {{}, wmClass, {}, {}}, nullptr),
                "a window of that class is the application's");
}

const Fuzz::Target target("DesktopFiles", check);

} // namespace
