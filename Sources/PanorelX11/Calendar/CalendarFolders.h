#pragma once

#include "PanorelX11/Calendar/CalendarFile.h"
#include "PanorelX11/Calendar/CalendarReport.h"

#include <QStringList>

#include <gio/gio.h>
#include <map>
#include <set>

namespace Panorel::X11 {

/// The user's folders of .ics files, be it one for a whole calendar or one for each event. A file
/// is read again when it has changed. Each folder is one calendar. On one thread.
class CalendarFolders {
public:
    CalendarFolders(QStringList roots, CalendarReport report);
    ~CalendarFolders();

    /// The occurrences that begin or go on in [from, to), as far as it gets before `cancel`.
    CalendarPort::Events events(Instant from, Instant to, GCancellable *cancel);

    /// Whether any of the folders holds such a file. From any thread.
    static bool holdAny(const QStringList &roots);

private:
    struct KnownFile;

    void look(GCancellable *cancel);
    void read(const QString &path, KnownFile &known);

    QStringList m_roots;
    CalendarReport m_report;
    std::map<QString, KnownFile> m_files;
    std::set<QString> m_reportedOverlong;
};

} // namespace Panorel::X11
