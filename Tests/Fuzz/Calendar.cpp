#include "PanorelX11/Calendar/ComponentSplitter.h"
#include "PanorelX11/Calendar/EventExpansion.h"

#include "Fuzz/Fuzz.h"

using namespace Panorel;
using namespace Panorel::X11;
using Fuzz::require;
using namespace std::chrono_literals;

namespace {

void checkParts(const QByteArray &text)
{
    const SplitCalendar parts = SplitCalendar::split(text);
    for (const auto &[components, name] :
         {std::pair(parts.events, QByteArray("VEVENT")), {parts.zones, "VTIMEZONE"}}) {
        for (const QByteArray &component : components) {
            require(component.startsWith("BEGIN:" + name + "\r\n")
                        && component.endsWith("END:" + name + "\r\n"),
                    "a part is one whole component");
            require(component.size() <= (1 << 20) + 100, "no part is too large for the parser");
        }
    }
}

/// As asked for by the program: what begins within the next hours, around a change of the clocks.
void check(const QByteArray &input)
{
    checkParts(input);
    const CalendarFile calendar = CalendarFile::parse(input);
    require(calendar.problem.isValidUtf16(), "a problem can be logged");
    const Instant from(1711846800s); // 31 March 2024, 01:00 UTC
    const Instant to = from + 12h;
    EventExpansion expansion(from, to, QTimeZone("Europe/Berlin"));
    expansion.add(calendar.events);
    for (const CalendarEvent &event : expansion.occurrences()) {
        for (const auto &text :
             {event.identifier, event.title, event.location, event.notes, event.url})
            require(!text || text->isValidUtf16(), "every text is valid");
        require(event.identifier && !event.identifier->isEmpty(),
                "every occurrence can be told from the others");
        require(event.start < to, "nothing begins after the asked time");
    }
}

const Fuzz::Target target("Calendar", check);

} // namespace
