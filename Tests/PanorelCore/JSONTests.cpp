#include "PanorelCore/JSON/FrameCodec.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Records/ModelCoding.h"

#include <QTest>

#include <limits>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

/// A file with every kind of value once. A row of the table below replaces one piece of it.
const QByteArray sceneFile = R"({
  "lastAppliedByConfig": {"desk": "0A0B0C0D-0000-4000-8000-00000000000F"},
  "scenes": [{
    "id": "0A0B0C0D-0000-4000-8000-00000000000F",
    "configID": "desk", "name": "Work", "createdAt": "2024-05-01T09:30:00Z",
    "opensMissingApps": true, "hidesOtherApps": true, "wallpaperPath": "/a/b.png",
    "hotKey": {"keyCode": 15, "modifiers": 768},
    "layout": {
      "configID": "desk", "name": "Home", "layoutName": "Default",
      "savedAt": "2024-05-01T09:30:00Z",
      "displays": [{"uuid": "U", "edidUUID": "E", "name": "N", "isBuiltin": false,
        "frame": [[0,0],[1920,1080]], "visibleFrame": [[0,25],[1920,1055]]}],
      "windows": [{"appName": "A", "bundleID": "B", "title": "T", "displayUUID": "U",
        "frame": [[-1920.5,-3],[800,600]], "zOrder": 3}]
    }
  }]
})";

SceneFile decoded(const QByteArray &json)
{
    return PanorelJSON::decoder().decode<SceneFile>(json);
}

/// The failure's text; empty where decoding succeeds.
QString failure(const QByteArray &json)
{
    try {
        decoded(json);
    } catch (const DecodingError &error) {
        return error.description();
    }
    return {};
}

/// Absent where it is refused, at its own place.
template <typename Integer> std::optional<qint64> integer(const char *text)
{
    try {
        const QByteArray json = QByteArray("[") + text + ']';
        return qint64(PanorelJSON::decoder().decode<std::vector<Integer>>(json).at(0));
    } catch (const DecodingError &error) {
        return error.path() == QLatin1String("[0]") ? std::nullopt : std::optional<qint64>(-99);
    }
}

} // namespace

class JSONTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRecordComesBackAsWritten()
    {
        const auto encoder = PanorelJSON::encoder();
        const auto decoder = PanorelJSON::decoder();
        SceneFile scenes = decoded(sceneFile);
        QCOMPARE(scenes.scenes.at(0).layout.windows.at(0).frame, (Rect{-1920.5, -3, 800, 600}));
        QCOMPARE(scenes.scenes.at(0).hotKey.value(), (HotKeyCombo{15, 768}));
        scenes.scenes.push_back(scenes.scenes[0]);
        SceneRecord &second = scenes.scenes[1];
        second.wallpaperPath.reset();
        second.hotKey.reset();
        second.layout.windows[0].title = QString::fromUtf8("\"\\/\u0001\n\t Grüße 😀") + QChar(0);
        second.layout.windows[0].frame = {0.1, 1.0 / 3, 1e300, 5e-324};
        QVERIFY(decoder.decode<SceneFile>(encoder.encode(scenes)) == scenes);

        const LayoutFile layouts{{{QStringLiteral("desk"), QStringLiteral("Default")}},
                                 {second.layout, scenes.scenes[0].layout}};
        QVERIFY(decoder.decode<LayoutFile>(encoder.encode(layouts)) == layouts);
    }

    void theWrittenFormIsFixed()
    {
        const auto encoder = PanorelJSON::encoder();
        const UsageData usage{{QStringLiteral("a/b")}, Instant(1714555800750ms), 1, 0, 0, 0, 0};
        QCOMPARE(
            encoder.encode(usage),
            QByteArray("{\n    \"deskIDs\": [\n        \"a\\/b\"\n    ],\n"
                       "    \"firstRecordedAt\": \"2024-05-01T09:30:00Z\",\n"
                       "    \"restores\": 1,\n    \"sceneSwitches\": 0,\n    \"stashUses\": 0,\n"
                       "    \"undoUses\": 0,\n    \"windowsPutBack\": 0\n}\n"));
        SceneFile file = decoded(sceneFile);
        file.scenes[0].wallpaperPath.reset();
        file.scenes[0].hotKey.reset();
        const QByteArray json = encoder.encode(file).simplified().replace(' ', "");
        QVERIFY(json.contains("[[-1920.5,-3],[800,600]]"));
        QVERIFY(json.contains("\"id\":\"0A0B0C0D-0000-4000-8000-00000000000F\""));
        QVERIFY(!json.contains("wallpaperPath") && !json.contains("hotKey"));
    }

    void aHandEditedFileIsReadOrSaysWhereItIsWrong()
    {
        const auto row = [](const char *name, const QByteArray &piece,
                            const QByteArray &replacement, const char *description = "") {
            const QByteArray json = QByteArray(sceneFile).replace(piece, replacement);
            QVERIFY2(json != sceneFile, "no such piece in the file");
            const QString trap = QLatin1String(name) + QStringLiteral(": ");
            QCOMPARE(trap + failure(json), trap + QLatin1String(description));
        };
        const QByteArray frame = "[[-1920.5,-3],[800,600]]";
        const QByteArray id = "\"id\": \"0A0B0C0D-0000-4000-8000-00000000000F\"";
        row("unknown key", "\"opensMissingApps\"", "\"later\": [{}], \"opensMissingApps\"");
        row("optional keys missing", "\"hidesOtherApps\": true, \"wallpaperPath\": \"/a/b.png\",",
            "");
        row("optional values null", "\"/a/b.png\"", "null");
        row("sibling of an optional key missing", "\"opensMissingApps\": true,", "",
            "missing key at scenes[0].opensMissingApps");
        row("1 for true", "\"opensMissingApps\": true", "\"opensMissingApps\": 1",
            "expected true or false at scenes[0].opensMissingApps");
        row("frame of one pair", frame, "[[1,2]]", "frame must be [[x,y],[w,h]]");
        row("frame flat", frame, "[1,2,3,4]",
            "expected an array at scenes[0].layout.windows[0].frame[0]");
        row("UUID in braces", id, "\"id\": \"{0A0B0C0D-0000-4000-8000-00000000000F}\"",
            "expected a UUID at scenes[0].id");
        QCOMPARE(failure({}), QStringLiteral("illegal value at byte 0"));
    }

    void aDateHasAZoneAndNoFractions()
    {
        for (const char *text :
             {"2024-05-01T09:30:00Z", "2024-05-01T11:30:00+02:00", "2024-05-01T00:00:00-09:30"}) {
            const auto date = PanorelJSON::iso().date(QString::fromLatin1(text));
            QVERIFY2(date == Instant(1714555800s), text);
        }
        for (const char *text :
             {"2023-02-29T00:00:00Z", "2024-05-01T09:30:00", "2024-05-01T09:30:00.750Z",
              "2024-05-01T24:00:00Z", "2024-05-01T09:30:00+99:99", "2024-05-01T09:30:00Z\n", ""})
            QVERIFY2(!PanorelJSON::iso().date(QString::fromLatin1(text)), text);
    }

    void integersAreExactToTheirWidth()
    {
        constexpr qint64 max64 = std::numeric_limits<qint64>::max();
        const std::tuple<const char *, std::optional<qint64>, bool> rows[] = {
            {"3.0", 3, true},
            {"-1", -1, false},
            {"4294967295", 4294967295, true},
            {"4294967296", 4294967296, false},
            {"9007199254740993", 9007199254740993, false}, // no double is this
            {"9223372036854775807", max64, false},
            {"\"3\"", {}, false},
        };
        for (const auto &[text, value, fits32] : rows) {
            QVERIFY2(integer<qint64>(text) == value, text);
            QVERIFY2(integer<quint32>(text) == (fits32 ? value : std::nullopt), text);
        }
    }
};

QTEST_GUILESS_MAIN(JSONTests)
#include "JSONTests.moc"
