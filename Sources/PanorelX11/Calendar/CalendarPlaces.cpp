#include "PanorelX11/Calendar/CalendarPlaces.h"

#include "PanorelX11/Calendar/CalendarFolders.h"
#include "PanorelX11/Session/GObjectOwned.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <gio/gio.h>

namespace Panorel::X11 {

namespace {

constexpr int patience = 2'000; // milliseconds, for each question to the bus

bool isSessionBusThere()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")
           || (!runtime.isEmpty() && QFile::exists(runtime + QStringLiteral("/bus")));
}

/// Whether the bus lists a name that begins so.
bool lists(GDBusConnection *bus, const char *method, const char *beginning)
{
    GVariant *reply =
        g_dbus_connection_call_sync(bus, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                    "org.freedesktop.DBus", method, nullptr, G_VARIANT_TYPE("(as)"),
                                    G_DBUS_CALL_FLAGS_NO_AUTO_START, patience, nullptr, nullptr);
    if (!reply)
        return false;
    GVariantIter *names = nullptr;
    g_variant_get(reply, "(as)", &names);
    bool found = false;
    const char *name = nullptr;
    while (g_variant_iter_next(names, "&s", &name))
        found = found || g_str_has_prefix(name, beginning);
    g_variant_iter_free(names);
    g_variant_unref(reply);
    return found;
}

} // namespace

CalendarPlaces CalendarPlaces::ofSession()
{
    CalendarPlaces places;
    places.folders = {QDir::home().filePath(QStringLiteral(".calendars")),
                      QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
                          .filePath(QStringLiteral("calendars"))};
    const QDir program(QCoreApplication::applicationDirPath());
    for (const char *folder : {PANOREL_PLUGINS, PANOREL_BUILT_PLUGINS}) {
        const QString path =
            program.filePath(QLatin1String(folder) + QStringLiteral("/libpanorel-evolution.so"));
        if (places.servicePlugin.isEmpty() && QFile::exists(path))
            places.servicePlugin = QDir::cleanPath(path);
    }
    return places;
}

bool CalendarPlaces::holdAny() const
{
    return offerService() || CalendarFolders::holdAny(folders);
}

bool CalendarPlaces::offerService() const
{
    // The first to ask for a bus that is not there would start one.
    if (servicePlugin.isEmpty() || !QFile::exists(servicePlugin) || !isSessionBusThere())
        return false;
    gchar *address = g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (!address)
        return false;
    // A connection of its own: the shared one ends the process when the bus goes away.
    const GOwned<GDBusConnection> bus(g_dbus_connection_new_for_address_sync(
        address,
        GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT
                             | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr));
    g_free(address);
    constexpr auto service = "org.gnome.evolution.dataserver.Sources";
    const bool isOffered = bus
                           && (lists(bus.get(), "ListActivatableNames", service)
                               || lists(bus.get(), "ListNames", service));
    if (bus)
        g_dbus_connection_close_sync(bus.get(), nullptr, nullptr);
    return isOffered;
}

} // namespace Panorel::X11
