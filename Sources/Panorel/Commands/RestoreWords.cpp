#include "Panorel/Commands/RestoreWords.h"

#include "PanorelCore/JSON/ValueCoding.h"

namespace Panorel {

namespace {

QString word(MatchReason reason)
{
    switch (reason) {
    case MatchReason::None:
        return QStringLiteral("none");
    case MatchReason::Title:
        return QStringLiteral("title");
    case MatchReason::Prefix:
        return QStringLiteral("prefix");
    case MatchReason::Size:
        return QStringLiteral("size");
    case MatchReason::Order:
        return QStringLiteral("order");
    }
    return {};
}

QJsonObject planned(const PlannedWindow &window)
{
    QJsonObject object{
        {QStringLiteral("application"), window.record.appName},
        {QStringLiteral("bundleID"), window.record.bundleID},
        {QStringLiteral("title"), window.record.title},
        {QStringLiteral("moves"), window.moves()},
        {QStringLiteral("matchedBy"), word(window.reason)},
        {QStringLiteral("to"), ValueCoding::write(window.record.frame)},
        {QStringLiteral("setsSize"), window.setsSize},
    };
    if (window.live) {
        object.insert(QStringLiteral("liveTitle"), window.live->title);
        object.insert(QStringLiteral("from"), ValueCoding::write(window.live->frame));
    } else {
        object.insert(QStringLiteral("skipped"), window.note);
    }
    return object;
}

} // namespace

QJsonObject RestoreWords::report(const RestoreReport &report)
{
    return {{QStringLiteral("restored"), report.restored},
            {QStringLiteral("failed"), report.failed},
            {QStringLiteral("skipped"), report.skipped},
            {QStringLiteral("seconds"), report.duration},
            {QStringLiteral("notes"), QJsonArray::fromStringList(report.notes)}};
}

QJsonObject RestoreWords::plan(const RestorePlan &plan)
{
    QJsonArray windows;
    for (const PlannedWindow &window : plan)
        windows.append(planned(window));
    return {{QStringLiteral("dryRun"), true}, {QStringLiteral("windows"), windows}};
}

QJsonObject RestoreWords::plan(const ScenePlan &plan)
{
    QJsonObject object = RestoreWords::plan(plan.windows);
    object.insert(QStringLiteral("opens"), QJsonArray::fromStringList(plan.opened));
    object.insert(QStringLiteral("hides"), QJsonArray::fromStringList(plan.hidden));
    return object;
}

} // namespace Panorel
