#include "PanorelCore/Triggers/TriggerCoding.h"

namespace Panorel {

namespace {

constexpr QLatin1String timeKey("time");
constexpr QLatin1String calendarVideoKey("calendarVideo");

} // namespace

QJsonValue write(const TriggerKind &kind)
{
    if (const TimeTrigger *time = kind.time())
        return QJsonObject{{QString(timeKey), ValueCoding::write(*time)}};
    return QJsonObject{{QString(calendarVideoKey), ValueCoding::write(*kind.calendarVideo())}};
}

void read(const QJsonValue &json, TriggerKind &kind, const CodingPath &path)
{
    const QJsonObject object = ValueCoding::requireObject(json, path);
    if (object.contains(timeKey) == object.contains(calendarVideoKey))
        throw DecodingError(QStringLiteral("Invalid number of keys found, expected one."),
                            path.text());
    if (object.contains(timeKey))
        ValueCoding::read(object.value(timeKey), kind.payload.emplace<TimeTrigger>(),
                          CodingPath(path, timeKey));
    else
        ValueCoding::read(object.value(calendarVideoKey),
                          kind.payload.emplace<CalendarVideoTrigger>(),
                          CodingPath(path, calendarVideoKey));
}

} // namespace Panorel
