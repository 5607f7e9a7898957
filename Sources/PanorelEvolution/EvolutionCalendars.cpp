#include "PanorelEvolution/EvolutionCalendars.h"

#include <QDateTime>

#include <algorithm>
#include <optional>

namespace Panorel::Evolution {

namespace {

constexpr guint32 unawaited = static_cast<guint32>(-1);

/// The thread's own main context while this lives.
class ContextScope {
public:
    explicit ContextScope(GMainContext *context) : m_context(context)
    {
        g_main_context_push_thread_default(m_context);
    }
    ~ContextScope()
    {
        while (g_main_context_iteration(m_context, FALSE)) {
        }
        g_main_context_pop_thread_default(m_context);
    }
    ContextScope(const ContextScope &) = delete;
    ContextScope &operator=(const ContextScope &) = delete;

private:
    GMainContext *m_context;
};

std::string written(Instant instant)
{
    return QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), Qt::UTC)
        .toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'"))
        .toStdString();
}

void append(QByteArray &text, ICalComponent *component)
{
    const OwnedText part(i_cal_component_as_ical_string(component));
    text += part.get();
}

/// The zones that a calendar's events name, as the calendar defines them.
class Zones {
public:
    Zones(ECalClient *client, GCancellable *cancel) : m_client(client), m_cancel(cancel) {}

    void collect(ICalComponent *component)
    {
        i_cal_component_foreach_tzid(component, &Zones::take, &m_names);
    }
    void appendTo(QByteArray &text) const
    {
        for (const std::string &name : m_names) {
            ICalTimezone *zone = nullptr; // the client's
            if (!e_cal_client_get_timezone_sync(m_client, name.c_str(), &zone, m_cancel, nullptr)
                || !zone)
                continue;
            if (const Owned<ICalComponent> definition{i_cal_timezone_get_component(zone)})
                append(text, definition.get());
        }
    }

private:
    static void take(ICalParameter *parameter, gpointer names)
    {
        if (const char *name = i_cal_parameter_get_tzid(parameter))
            static_cast<std::set<std::string> *>(names)->insert(name);
    }

    ECalClient *m_client;
    GCancellable *m_cancel;
    std::set<std::string> m_names;
};

} // namespace

EvolutionCalendars::EvolutionCalendars(X11::CalendarReport report)
    : m_report(std::move(report)), m_context(g_main_context_new())
{}

EvolutionCalendars::~EvolutionCalendars()
{
    {
        const ContextScope scope(m_context);
        m_clients.clear();
    }
    g_main_context_unref(m_context);
}

std::vector<QByteArray> EvolutionCalendars::calendars(Instant from, Instant to,
                                                      GCancellable *cancel)
{
    std::vector<QByteArray> result;
    const ContextScope scope(m_context);
    const Owned<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancel, m_failure.out()));
    if (!bus) {
        report("the session bus can't be reached", "");
        return result;
    }
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    // Anew each time, for 10 ms: one that is kept misses what changed while nobody listened.
    const Owned<ESourceRegistry> registry(e_source_registry_new_sync(cancel, m_failure.out()));
    if (!registry) {
        report("the calendar service can't be reached", "");
        return result;
    }
    const OwnedList enabled(
        e_source_registry_list_enabled(registry.get(), E_SOURCE_EXTENSION_CALENDAR));
    std::vector<ESource *> sources;
    for (const GList *entry = enabled.get(); entry; entry = entry->next)
        sources.push_back(E_SOURCE(entry->data));
    // A calendar that uses all the time up does so after the others were read.
    std::stable_partition(sources.begin(), sources.end(), [this](ESource *source) {
        return !m_slow.contains(e_source_get_uid(source));
    });
    const std::string query = "(occur-in-time-range? (make-time \"" + written(from)
                              + "\") (make-time \"" + written(to) + "\"))";
    std::erase_if(m_clients, [&](const auto &known) {
        return std::ranges::none_of(
            sources, [&](ESource *source) { return known.first == e_source_get_uid(source); });
    });
    for (ESource *source : sources) {
        if (auto text = read(source, query, cancel))
            result.push_back(std::move(*text));
    }
    return result;
}

/// Null where the calendar can't be opened; `m_failure` says why.
ECalClient *EvolutionCalendars::client(ESource *source, GCancellable *cancel)
{
    auto &known = m_clients[e_source_get_uid(source)];
    if (!known) {
        EClient *opened = e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS,
                                                    unawaited, cancel, m_failure.out());
        if (opened)
            known.reset(E_CAL_CLIENT(opened));
    }
    return known.get();
}

std::optional<QByteArray> EvolutionCalendars::read(ESource *source, const std::string &query,
                                                   GCancellable *cancel)
{
    const std::string uid = e_source_get_uid(source);
    m_slow.erase(uid);
    // A second time because the server may have died since the calendar was opened.
    for (int attempt = 0; attempt < 2 && !g_cancellable_is_cancelled(cancel); ++attempt) {
        QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
        ECalClient *opened = client(source, cancel);
        if (opened && readInto(text, opened, query, cancel))
            return text + "END:VCALENDAR\r\n";
        m_clients.erase(uid);
    }
    if (g_cancellable_is_cancelled(cancel))
        m_slow.insert(uid);
    report("left out", e_source_get_display_name(source));
    return std::nullopt;
}

bool EvolutionCalendars::readInto(QByteArray &text, ECalClient *client, const std::string &query,
                                  GCancellable *cancel)
{
    GSList *found = nullptr;
    const bool isRead =
        e_cal_client_get_object_list_sync(client, query.c_str(), &found, cancel, m_failure.out());
    const OwnedSList owned(found);
    if (!isRead)
        return false;
    Zones zones(client, cancel);
    std::set<std::string> series;
    for (const GSList *entry = owned.get(); entry; entry = entry->next) {
        ICalComponent *component = I_CAL_COMPONENT(entry->data);
        const char *uid = i_cal_component_get_uid(component);
        if (uid && e_cal_util_component_has_recurrences(component)) {
            series.insert(uid);
            continue;
        }
        zones.collect(component);
        append(text, component);
    }
    // An occurrence that was moved out of the time is not found, but it replaces one that is.
    for (const std::string &uid : series) {
        GSList *all = nullptr;
        const bool isWhole = e_cal_client_get_objects_for_uid_sync(client, uid.c_str(), &all,
                                                                   cancel, m_failure.out());
        const OwnedSList ownedAll(all);
        if (!isWhole && g_cancellable_is_cancelled(cancel))
            return false;
        for (const GSList *entry = all; entry; entry = entry->next) {
            ICalComponent *component =
                e_cal_component_get_icalcomponent(E_CAL_COMPONENT(entry->data));
            zones.collect(component);
            append(text, component);
        }
    }
    zones.appendTo(text);
    return true;
}

void EvolutionCalendars::report(const char *what, const char *of)
{
    const QString name = QString::fromUtf8(of);
    m_report(QStringLiteral("%1%2: %3")
                 .arg(name.isEmpty() ? QString() : QStringLiteral("“%1” ").arg(name),
                      QLatin1String(what), QString::fromUtf8(m_failure.message())));
}

} // namespace Panorel::Evolution
