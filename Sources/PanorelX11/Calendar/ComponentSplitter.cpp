#include "PanorelX11/Calendar/ComponentSplitter.h"

namespace Panorel::X11 {

namespace {

constexpr int deepest = 4; // the calendar, an event, its alarm, and one to spare

/// The component that the line begins or ends, in capitals, if it does that.
QByteArray named(QByteArrayView line, QByteArrayView keyword)
{
    if (line.size() <= keyword.size()
        || qstrnicmp(line.data(), keyword.size(), keyword.data(), keyword.size()) != 0)
        return {};
    return line.sliced(keyword.size()).trimmed().toByteArray().toUpper();
}

} // namespace

SplitCalendar SplitCalendar::split(const QByteArray &text)
{
    SplitCalendar result;
    bool seen = false;
    bool balanced = true;
    std::vector<QByteArray> open;
    qsizetype begin = 0;
    bool tooDeep = false;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = text.indexOf('\n', at);
        end = end < 0 ? text.size() : end + 1;
        const QByteArrayView line(text.constData() + at, end - at);
        if (const QByteArray started = named(line, "BEGIN:"); !started.isEmpty()) {
            if (started == "VCALENDAR" || (started == "VEVENT" && open.size() > 1)) {
                // What was open before it was cut off.
                balanced = balanced && open.empty();
                open.resize(started == "VCALENDAR" ? 0 : 1);
                seen = true;
            }
            open.push_back(started);
            if (open.size() == 2) {
                begin = at;
                tooDeep = false;
            }
            tooDeep = tooDeep || open.size() > deepest;
            if (open.size() > 10'000)
                break;
        } else if (const QByteArray ended = named(line, "END:"); !ended.isEmpty()) {
            if (open.empty() || open.back() != ended) {
                balanced = false;
            } else {
                if (open.size() == 2 && open.front() == "VCALENDAR" && !tooDeep) {
                    if (ended == "VEVENT")
                        result.events.push_back(text.sliced(begin, end - begin));
                    else if (ended == "VTIMEZONE")
                        result.zones.push_back(text.sliced(begin, end - begin));
                }
                balanced = balanced && !(open.size() == 2 && tooDeep);
                open.pop_back();
            }
        }
        at = end;
    }
    result.isWellFormed = seen && balanced && open.empty();
    return result;
}

} // namespace Panorel::X11
