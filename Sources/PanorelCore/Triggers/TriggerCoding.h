#pragma once

#include "PanorelCore/JSON/ValueCoding.h"
#include "PanorelCore/Triggers/TriggerRecord.h"

/// The JSON form of the triggers. Every key is required.
namespace Panorel {

template <> struct Fields<TimeTrigger> {
    using R = TimeTrigger;
    static constexpr auto table = std::make_tuple(
        Field{"hour", &R::hour}, Field{"minute", &R::minute}, Field{"weekdays", &R::weekdays});
};

template <> struct Fields<CalendarVideoTrigger> {
    using R = CalendarVideoTrigger;
    static constexpr auto table = std::make_tuple(Field{"leadMinutes", &R::leadMinutes});
};

template <> struct Fields<TriggerRecord> {
    using R = TriggerRecord;
    static constexpr auto table =
        std::make_tuple(Field{"id", &R::id}, Field{"sceneID", &R::sceneID}, Field{"kind", &R::kind},
                        Field{"enabled", &R::enabled});
};

/// An object whose one key names the kind and whose value holds the kind's own fields. Found by
/// the types they take, so they stand beside these.
QJsonValue write(const TriggerKind &kind);
void read(const QJsonValue &json, TriggerKind &kind, const CodingPath &path);

} // namespace Panorel
