#include "Panorel/Commands/CommandText.h"

#include "Panorel/Commands/TextTable.h"
#include "PanorelCore/JSON/ValueCoding.h"

#include <map>

namespace Panorel {

namespace {

QString value(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toVariant().toString();
}

bool isTrue(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toBool();
}

QJsonArray list(const QJsonObject &object, const char *key)
{
    return object.value(QLatin1String(key)).toArray();
}

QString joined(const QJsonArray &texts)
{
    QStringList words;
    for (const QJsonValue &text : texts)
        words.append(text.toString());
    return words.join(QStringLiteral(", "));
}

QString counted(const QJsonObject &object, const char *key, const char *one, const char *many)
{
    const qint64 number = object.value(QLatin1String(key)).toInteger();
    return QStringLiteral("%1 %2").arg(number).arg(QLatin1String(number == 1 ? one : many));
}

QString line(const QString &text)
{
    return fitForTerminal(text) + QLatin1Char('\n');
}

/// "1920,0 960x1080", as other programs for windows write it.
QString geometry(const QJsonValue &json, bool withSize)
{
    Rect frame;
    ValueCoding::read(json, frame, CodingPath());
    const QString position =
        QStringLiteral("%1,%2").arg(frame.x, 0, 'f', 0).arg(frame.y, 0, 'f', 0);
    if (!withSize)
        return position;
    return position
           + QStringLiteral(" %1x%2").arg(frame.width, 0, 'f', 0).arg(frame.height, 0, 'f', 0);
}

QString planText(const QJsonObject &result)
{
    TextTable table;
    for (const QJsonValue &entry : list(result, "windows")) {
        const QJsonObject window = entry.toObject();
        const bool setsSize = isTrue(window, "setsSize");
        QStringList row{value(window, "application"),
                        QStringLiteral("“%1”").arg(value(window, "title"))};
        if (window.contains(QStringLiteral("skipped"))) {
            row << QStringLiteral("stays away: ") + value(window, "skipped");
        } else {
            const QString target = geometry(window.value(QStringLiteral("to")), setsSize);
            row << (isTrue(window, "moves")
                        ? geometry(window.value(QStringLiteral("from")), setsSize)
                              + QStringLiteral(" -> ") + target
                        : QStringLiteral("is at ") + target)
                << QStringLiteral("by ") + value(window, "matchedBy");
            if (value(window, "liveTitle") != value(window, "title"))
                row.back() += QStringLiteral(", now “%1”").arg(value(window, "liveTitle"));
        }
        table.add(row);
    }
    QString text = table.isEmpty() ? QStringLiteral("No windows.\n") : table.text();
    if (const QJsonArray opens = list(result, "opens"); !opens.isEmpty())
        text += line(QStringLiteral("Would start ") + joined(opens));
    if (const QJsonArray hides = list(result, "hides"); !hides.isEmpty())
        text += line(QStringLiteral("Would hide ") + joined(hides));
    return text;
}

QString restoreText(const QJsonObject &result)
{
    if (isTrue(result, "dryRun"))
        return planText(result);
    const qint64 windows = result.value(QStringLiteral("restored")).toInteger()
                           + result.value(QStringLiteral("failed")).toInteger()
                           + result.value(QStringLiteral("skipped")).toInteger();
    const QString scene = value(result, "scene");
    QString text = line(QStringLiteral("%1 %2 of %3")
                            .arg(scene.isEmpty() ? QStringLiteral("Put back")
                                                 : QStringLiteral("Applied “%1”:").arg(scene),
                                 value(result, "restored"),
                                 windows == 1 ? QStringLiteral("1 window")
                                              : QStringLiteral("%1 windows").arg(windows)));
    for (const QJsonValue &note : list(result, "notes"))
        text += line(QStringLiteral("  ") + note.toString());
    return text;
}

QString scenesText(const QJsonObject &result)
{
    TextTable table;
    for (const QJsonValue &entry : list(result, "scenes")) {
        const QJsonObject scene = entry.toObject();
        table.add({value(scene, "id"), value(scene, "name"),
                   isTrue(scene, "isForCurrentDesk") ? QStringLiteral("this desk")
                                                     : value(scene, "deskName"),
                   counted(scene, "windows", "window", "windows"), value(scene, "key")});
    }
    return table.isEmpty() ? QStringLiteral("No scenes.\n") : table.text();
}

QString desksText(const QJsonObject &result)
{
    TextTable table;
    for (const QJsonValue &entry : list(result, "desks")) {
        const QJsonObject desk = entry.toObject();
        table.add({value(desk, "id").left(8), value(desk, "name"), joined(list(desk, "displays")),
                   counted(desk, "windows", "window", "windows"), value(desk, "savedAt"),
                   isTrue(desk, "isCurrent") ? QStringLiteral("here now") : QString()});
    }
    return table.isEmpty() ? QStringLiteral("No desks.\n") : table.text();
}

QString rulesText(const QJsonObject &result)
{
    TextTable table;
    for (const QJsonValue &entry : list(result, "rules")) {
        const QJsonObject rule = entry.toObject();
        QStringList says;
        if (isTrue(rule, "ignored"))
            says << QStringLiteral("left alone");
        if (isTrue(rule, "restoreSize"))
            says << QStringLiteral("always with its size");
        table.add({value(rule, "bundleID"),
                   says.isEmpty() ? QStringLiteral("as usual") : says.join(QStringLiteral(", "))});
    }
    return table.isEmpty() ? QStringLiteral("No rules.\n") : table.text();
}

QString triggersText(const QJsonObject &result)
{
    TextTable table;
    for (const QJsonValue &entry : list(result, "triggers")) {
        const QJsonObject trigger = entry.toObject();
        const bool hasScene = trigger.contains(QStringLiteral("sceneName"));
        table.add({value(trigger, "when"),
                   hasScene ? value(trigger, "sceneName") : QStringLiteral("a scene that is gone"),
                   isTrue(trigger, "enabled") ? QStringLiteral("on") : QStringLiteral("off")});
    }
    return table.isEmpty() ? QStringLiteral("No triggers.\n") : table.text();
}

QString statusText(const QJsonObject &result)
{
    const auto yesNo = [&](const char *key) {
        return isTrue(result, key) ? QStringLiteral("yes") : QStringLiteral("no");
    };
    const QJsonObject desk = result.value(QStringLiteral("desk")).toObject();
    TextTable table;
    table.add({QStringLiteral("Panorel"), value(result, "version")});
    table.add({QStringLiteral("Desk"), value(desk, "name")});
    table.add({QStringLiteral("Displays"), joined(list(desk, "displays"))});
    table.add({QStringLiteral("Remembered"), counted(desk, "windows", "window", "windows")});
    table.add({QStringLiteral("On"), yesNo("enabled")});
    table.add({QStringLiteral("Restores by itself"), yesNo("restoresAutomatically")});
    table.add({QStringLiteral("Can move windows"), yesNo("canMoveWindows")});
    table.add({QStringLiteral("Stashed"), yesNo("stashed")});
    table.add({QStringLiteral("Can undo"), yesNo("canUndo")});
    if (!value(result, "lastAction").isEmpty())
        table.add({QStringLiteral("Last action"), value(result, "lastAction")});
    table.add({QStringLiteral("Data"), value(result, "dataDirectory")});
    return table.text();
}

QString saveText(const QJsonObject &result)
{
    return QStringLiteral("Saved %1\n").arg(counted(result, "windows", "window", "windows"));
}

QString stashText(const QJsonObject &result)
{
    return isTrue(result, "stashed") ? QStringLiteral("Desk stashed\n")
                                     : QStringLiteral("Desk brought back\n");
}

QString contents(const QJsonObject &counts)
{
    return QStringList{counted(counts, "desks", "desk", "desks"),
                       counted(counts, "scenes", "scene", "scenes"),
                       counted(counts, "rules", "rule", "rules"),
                       counted(counts, "triggers", "trigger", "triggers")}
        .join(QStringLiteral(", "));
}

QString exportText(const QJsonObject &result)
{
    return line(QStringLiteral("Wrote “%1”: %2").arg(value(result, "file"), contents(result)));
}

QString importText(const QJsonObject &result)
{
    const QString replaced = contents(result.value(QStringLiteral("replaces")).toObject());
    const QString backup = value(result, "backup");
    if (backup.isEmpty()) {
        return line(QStringLiteral("Would replace %1 by %2").arg(replaced, contents(result)));
    }
    return line(QStringLiteral("Replaced %1 by %2").arg(replaced, contents(result)))
           + line(QStringLiteral("What was there before is in “%1”").arg(backup));
}

} // namespace

QString textOf(const CommandRequest &request, const QJsonObject &result)
{
    static const std::map<QString, QString (*)(const QJsonObject &)> writers = {
        {QStringLiteral("restore"), restoreText}, {QStringLiteral("undo"), restoreText},
        {QStringLiteral("apply"), restoreText},   {QStringLiteral("save"), saveText},
        {QStringLiteral("stash"), stashText},     {QStringLiteral("scenes"), scenesText},
        {QStringLiteral("desks"), desksText},     {QStringLiteral("status"), statusText},
        {QStringLiteral("rules"), rulesText},     {QStringLiteral("triggers"), triggersText},
        {QStringLiteral("export"), exportText},   {QStringLiteral("import"), importText},
    };
    const auto writer = writers.find(request.verb);
    return writer == writers.end() ? QString() : writer->second(result);
}

} // namespace Panorel
