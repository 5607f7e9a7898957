#include "PanorelX11/Calendar/ICalValues.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <span>

namespace Panorel::X11 {

namespace {

using namespace std::chrono;

std::optional<WallTime> wallTime(const icaltimetype &time)
{
    const year_month_day date(year(time.year), month(static_cast<unsigned>(time.month)),
                              day(static_cast<unsigned>(time.day)));
    if (time.year < 1 || time.year > 9999 || !date.ok())
        return std::nullopt;
    if (time.is_date)
        return WallTime(local_days(date));
    if (time.hour < 0 || time.hour > 23 || time.minute < 0 || time.minute > 59 || time.second < 0
        || time.second > 60)
        return std::nullopt;
    return local_days(date) + hours(time.hour) + minutes(time.minute) + seconds(time.second);
}

QTimeZone systemZone(const QString &name)
{
    // A name is a path below the folder of zones; nothing else may be opened.
    static const QRegularExpression plain(
        QStringLiteral("\\A[A-Za-z0-9_+-]{1,32}(/[A-Za-z0-9_+-]{1,32}){0,2}\\z"));
    // Asked for one that is not there, Qt may take the name for a description of the zone.
    if (plain.match(name).hasMatch()
        && QFileInfo(QStringLiteral("/usr/share/zoneinfo/") + name).isFile())
        return QTimeZone(name.toLatin1());
    const QByteArray ofWindows = QTimeZone::windowsIdToDefaultIanaId(name.toUtf8());
    return ofWindows.isEmpty() ? QTimeZone() : QTimeZone(ofWindows);
}

icaltimetype timeOf(icalproperty *property)
{
    const icalvalue *value = icalproperty_get_value(property);
    switch (value ? icalvalue_isa(value) : ICAL_NO_VALUE) {
    case ICAL_DATE_VALUE:
    case ICAL_DATETIME_VALUE:
    case ICAL_DATETIMEDATE_VALUE:
        return icalvalue_get_datetime(value);
    case ICAL_DATETIMEPERIOD_VALUE: {
        const icaldatetimeperiodtype either = icalvalue_get_datetimeperiod(value);
        return icaltime_is_null_time(either.time) ? either.period.start : either.time;
    }
    case ICAL_PERIOD_VALUE:
        return icalvalue_get_period(value).start;
    default:
        return icaltime_null_time();
    }
}

template <typename T> std::vector<int> list(std::span<const T> values)
{
    std::vector<int> result;
    for (const T value : values) {
        if (value == ICAL_RECURRENCE_ARRAY_MAX)
            break;
        result.push_back(value);
    }
    return result;
}

template <typename T, std::size_t size> std::vector<int> list(const T (&values)[size])
{
    return list(std::span<const T>(values));
}

} // namespace

ZoneTable::Zone ZoneTable::find(const QString &name)
{
    if (const auto known = m_zones.constFind(name); known != m_zones.constEnd())
        return *known;
    Zone result;
    for (QString rest = name; !result && !rest.isEmpty() && rest.size() < 200;) {
        const QTimeZone zone = systemZone(rest);
        if (zone.isValid())
            result = std::make_shared<EventZone>(zone);
        const qsizetype slash = rest.indexOf(u'/');
        rest = slash < 0 ? QString() : rest.mid(slash + 1);
    }
    m_zones.insert(name, result);
    return result;
}

ZoneTable::Zone ZoneTable::utc()
{
    static const Zone utc = std::make_shared<EventZone>(QTimeZone::utc());
    return utc;
}

ZoneTable::Zone ZoneTable::local()
{
    return std::make_shared<EventZone>(QTimeZone::systemTimeZone());
}

std::optional<EventTime> readTime(icalproperty *property, ZoneTable &zones)
{
    const icaltimetype read = timeOf(property);
    const auto wall = wallTime(read);
    if (!wall)
        return std::nullopt;
    EventTime time{*wall, nullptr, read.is_date != 0};
    if (time.isDate)
        return time;
    auto *parameter = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    if (icaltime_is_utc(read))
        time.zone = zones.utc();
    else if (parameter)
        time.zone = zones.find(QString::fromUtf8(icalparameter_get_tzid(parameter)));
    return time;
}

std::optional<ReadRule> readRule(const icalrecurrencetype &read)
{
    using Frequency = RecurrenceRule::Frequency;
    static_assert(int(Frequency::Secondly) == ICAL_SECONDLY_RECURRENCE
                  && int(Frequency::Yearly) == ICAL_YEARLY_RECURRENCE);
    if (read.freq < ICAL_SECONDLY_RECURRENCE || read.freq > ICAL_YEARLY_RECURRENCE
        || (read.rscale && qstricmp(read.rscale, "GREGORIAN") != 0))
        return std::nullopt;
    ReadRule result;
    RecurrenceRule &rule = result.rule;
    rule.frequency = static_cast<Frequency>(read.freq);
    rule.interval = read.interval;
    if (read.count > 0)
        rule.count = read.count;
    if (!icaltime_is_null_time(read.until)) {
        rule.until = wallTime(read.until);
        result.isUntilInUtc = icaltime_is_utc(read.until) != 0;
        if (rule.until && read.until.is_date)
            *rule.until += days(1) - seconds(1);
    }
    const auto weekdayOf = [](int number) { return weekday(static_cast<unsigned>(number - 1)); };
    if (read.week_start != ICAL_NO_WEEKDAY)
        rule.weekStart = weekdayOf(read.week_start);
    rule.seconds = list(read.by_second);
    rule.minutes = list(read.by_minute);
    rule.hours = list(read.by_hour);
    rule.monthDays = list(read.by_month_day);
    rule.yearDays = list(read.by_year_day);
    rule.weeks = list(read.by_week_no);
    for (const int encoded : list(read.by_month))
        rule.months.push_back(icalrecurrencetype_month_month(static_cast<short>(encoded)));
    rule.positions = list(read.by_set_pos);
    for (const int encoded : list(read.by_day)) {
        const auto day = static_cast<short>(encoded);
        if (const int number = icalrecurrencetype_day_day_of_week(day); number != ICAL_NO_WEEKDAY)
            rule.days.push_back({icalrecurrencetype_day_position(day), weekdayOf(number)});
    }
    return result;
}

} // namespace Panorel::X11
