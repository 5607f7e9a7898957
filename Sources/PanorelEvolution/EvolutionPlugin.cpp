#include "PanorelEvolution/EvolutionCalendars.h"

#include <QObject>

namespace Panorel::Evolution {

class EvolutionPlugin final : public QObject, public X11::CalendarServiceFactory {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.panorel.Panorel.CalendarServiceFactory/1")
    Q_INTERFACES(Panorel::X11::CalendarServiceFactory)

public:
    std::unique_ptr<X11::CalendarService> create(X11::CalendarReport report) override
    {
        return std::make_unique<EvolutionCalendars>(std::move(report));
    }
};

} // namespace Panorel::Evolution

#include "EvolutionPlugin.moc"
