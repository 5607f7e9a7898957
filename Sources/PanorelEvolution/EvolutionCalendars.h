#pragma once

#include "PanorelEvolution/GlibPointers.h"
#include "PanorelX11/Calendar/CalendarService.h"

#include <libecal/libecal.h>

#include <map>
#include <set>
#include <string>

namespace Panorel::Evolution {

/// The calendars of Evolution Data Server. It is started by the first query and stays connected;
/// a calendar whose server has died is opened again by the query that notices.
class EvolutionCalendars final : public X11::CalendarService {
public:
    explicit EvolutionCalendars(X11::CalendarReport report);
    ~EvolutionCalendars() override;

    std::vector<QByteArray> calendars(Instant from, Instant to, GCancellable *cancel) override;

private:
    ECalClient *client(ESource *source, GCancellable *cancel);
    std::optional<QByteArray> read(ESource *source, const std::string &query, GCancellable *cancel);
    bool readInto(QByteArray &text, ECalClient *client, const std::string &query,
                  GCancellable *cancel);
    void report(const char *what, const char *of);

    X11::CalendarReport m_report;
    GMainContext *m_context; ///< where the libraries deliver; nobody else's
    std::map<std::string, Owned<ECalClient>> m_clients;
    std::set<std::string> m_slow; ///< did not answer in time when last asked
    Failure m_failure;
};

} // namespace Panorel::Evolution
