#include "PanorelX11/Applications/DesktopList.h"

#include "PanorelX11/Session/GObjectOwned.h"

#include <QFileInfo>
#include <QSet>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace Panorel::X11 {

namespace {

struct ContextDeleter {
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
};

QString takeText(char *text)
{
    const QString result = QString::fromUtf8(text);
    g_free(text);
    return result;
}

/// Many unrelated programs run under the same interpreter or launcher, so that its name, alone in
/// an Exec line, does not tell which application a process is.
bool runsOthers(const QString &program)
{
    static const QSet<QString> names{
        QStringLiteral("sh"),     QStringLiteral("bash"),     QStringLiteral("dash"),
        QStringLiteral("env"),    QStringLiteral("python"),   QStringLiteral("python3"),
        QStringLiteral("perl"),   QStringLiteral("ruby"),     QStringLiteral("node"),
        QStringLiteral("java"),   QStringLiteral("gjs"),      QStringLiteral("mono"),
        QStringLiteral("wine"),   QStringLiteral("electron"), QStringLiteral("flatpak"),
        QStringLiteral("pkexec"), QStringLiteral("snap"),
    };
    return names.contains(program);
}

/// GIO's own answer stops at the first blank, also in quotes.
QString executableName(GAppInfo *application)
{
    const char *commandLine = g_app_info_get_commandline(application);
    char **arguments = nullptr;
    if (!commandLine || !g_shell_parse_argv(commandLine, nullptr, &arguments, nullptr))
        return {};
    const QString program = QFileInfo(QString::fromUtf8(arguments[0])).fileName();
    g_strfreev(arguments);
    return runsOthers(program) ? QString() : program;
}

std::vector<DesktopEntry> readEntries()
{
    std::vector<DesktopEntry> entries;
    GList *applications = g_app_info_get_all();
    for (const GList *item = applications; item; item = item->next) {
        if (!G_IS_DESKTOP_APP_INFO(item->data))
            continue;
        DesktopEntry entry = describe(G_DESKTOP_APP_INFO(item->data));
        if (!entry.id.isEmpty()) // a file named just ".desktop"
            entries.push_back(std::move(entry));
    }
    g_list_free_full(applications, g_object_unref);
    std::ranges::sort(entries, {}, &DesktopEntry::id);
    return entries;
}

} // namespace

DesktopEntry describe(GDesktopAppInfo *information)
{
    auto *application = G_APP_INFO(information);
    DesktopEntry entry;
    entry.id = QString::fromUtf8(g_app_info_get_id(application));
    if (entry.id.endsWith(QLatin1String(".desktop")))
        entry.id.chop(8);
    entry.name = QString::fromUtf8(g_app_info_get_name(application));
    entry.path = QString::fromUtf8(g_desktop_app_info_get_filename(information));
    entry.startupWMClass = QString::fromUtf8(g_desktop_app_info_get_startup_wm_class(information));
    entry.executable = executableName(application);
    entry.isTerminalEmulator = takeText(g_desktop_app_info_get_string(information, "Categories"))
                                   .split(QLatin1Char(';'))
                                   .contains(QLatin1String("TerminalEmulator"));
    return entry;
}

/// The monitor reports to a context of its own, which entries() empties: so the news arrives under
/// any event loop or none, and nobody else's callbacks run in the middle of a look-up.
struct DesktopList::Watch {
    Watch() : context(g_main_context_new())
    {
        g_main_context_push_thread_default(context.get());
        monitor.reset(g_app_info_monitor_get());
        g_main_context_pop_thread_default(context.get());
        const GCallback changed =
            G_CALLBACK(+[](GAppInfoMonitor *, Watch *self) { self->stale = true; });
        handler = g_signal_connect(monitor.get(), "changed", changed, this);
    }
    ~Watch() { g_signal_handler_disconnect(monitor.get(), handler); }

    std::unique_ptr<GMainContext, ContextDeleter> context;
    GOwned<GAppInfoMonitor> monitor;
    gulong handler = 0;
    bool stale = true;
};

DesktopList::DesktopList() : m_watch(std::make_unique<Watch>()) {}

DesktopList::~DesktopList() = default;

const std::vector<DesktopEntry> &DesktopList::entries()
{
    while (g_main_context_iteration(m_watch->context.get(), FALSE)) {
    }
    if (std::exchange(m_watch->stale, false))
        m_entries = readEntries();
    return m_entries;
}

} // namespace Panorel::X11
