#include "PanorelX11/Applications/GioLauncher.h"

#include "PanorelX11/Session/GObjectOwned.h"
#include "PanorelX11/Session/StartEnvironment.h"

#include <QFile>

#include <gio/gdesktopappinfo.h>
#include <unistd.h>

namespace Panorel::X11 {

namespace {

/// Ids come from files that the user may have edited or received.
bool canBeID(const QString &id)
{
    constexpr qsizetype longestFileName = 255;
    return !id.isEmpty() && id.size() <= longestFileName && !id.contains(u'/')
           && !id.contains(QChar(u'\0'));
}

bool canBeStarted(GDesktopAppInfo *application)
{
    return g_app_info_get_commandline(G_APP_INFO(application))
           || g_desktop_app_info_get_boolean(application, "DBusActivatable");
}

GOwned<GAppLaunchContext> contextWithStartEnvironment()
{
    GOwned<GAppLaunchContext> context(g_app_launch_context_new());
    auto wanted = StartEnvironment::variables();
    // These two speak of the one start of this program.
    wanted.erase("DESKTOP_STARTUP_ID");
    wanted.erase("XDG_ACTIVATION_TOKEN");
    for (const auto &[name, value] : StartEnvironment::presentVariables()) {
        if (!wanted.contains(name))
            g_app_launch_context_unsetenv(context.get(), name.constData());
    }
    for (const auto &[name, value] : wanted)
        g_app_launch_context_setenv(context.get(), name.constData(), value.constData());
    return context;
}

/// Between fork and exec: only what is safe after the fork of a process with threads.
void leaveThisProgram(void *)
{
    setsid(); // or a terminal that this program was started in would end it as well
}

void launch(const QByteArray &path, GAppLaunchContext *context)
{
    const GOwned<GDesktopAppInfo> application(
        g_desktop_app_info_new_from_filename(path.constData()));
    if (!application)
        return;
    // Without G_SPAWN_DO_NOT_REAP_CHILD the child belongs to init and leaves no zombie here.
    g_desktop_app_info_launch_uris_as_manager(application.get(), nullptr, context,
                                              G_SPAWN_SEARCH_PATH, leaveThisProgram, nullptr,
                                              nullptr, nullptr, nullptr);
}

} // namespace

std::optional<QString> GioLauncher::locate(const QString &bundleID)
{
    if (!canBeID(bundleID))
        return {};
    const QByteArray file = QFile::encodeName(bundleID + QLatin1String(".desktop"));
    // GIO knows nothing of one that is hidden or whose program is missing.
    const GOwned<GDesktopAppInfo> application(g_desktop_app_info_new(file.constData()));
    if (!application || !canBeStarted(application.get()))
        return {};
    return QFile::decodeName(g_desktop_app_info_get_filename(application.get()));
}

void GioLauncher::open(const QString &location)
{
    // The environment is read here, on the thread that may change it.
    std::erase_if(m_openings, [](const std::future<void> &opening) {
        return opening.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    });
    m_openings.push_back(std::async(
        std::launch::async, [path = QFile::encodeName(location),
                             context = std::shared_ptr<GAppLaunchContext>(
                                 contextWithStartEnvironment())] { launch(path, context.get()); }));
}

} // namespace Panorel::X11
