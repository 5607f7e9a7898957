#include "Core/Samples.h"

namespace Panorel::Samples {

namespace {

constexpr int windowsOnADesk = 12;
constexpr int desksWithScenes = 5;

Instant moment()
{
    return Instant(std::chrono::seconds(1715592000));
}

QUuid uuid(const QString &name)
{
    return QUuid::createUuidV5(QUuid(), name);
}

} // namespace

QString applicationID(int number)
{
    return QStringLiteral("org.example.Application%1").arg(number);
}

QString deskID(int number)
{
    return QStringLiteral("10AC-A0C4-%1+4C2D-0F91-0").arg(number);
}

std::vector<DisplayInfo> displays()
{
    const Rect left{0, 0, 1920, 1080};
    const Rect right{1920, 0, 2560, 1440};
    return {{QStringLiteral("L"), QStringLiteral("10AC-A0C4-1"), QStringLiteral("Left"), true, left,
             left},
            {QStringLiteral("R"), QStringLiteral("4C2D-0F91-2"), QStringLiteral("Right"), false,
             right, right}};
}

std::vector<WindowRecord> windows(int count)
{
    std::vector<WindowRecord> records;
    for (int i = 0; i < count; ++i) {
        const int application = i / windowsEach;
        const Rect frame{double(i * 7 % 3500), double(i * 11 % 900), double(300 + i * 13 % 900),
                         double(200 + i * 17 % 700)};
        records.push_back({QStringLiteral("Application %1").arg(application),
                           applicationID(application),
                           QStringLiteral("Document %1 — a title of everyday length").arg(i),
                           frame.x < 1920 ? QStringLiteral("L") : QStringLiteral("R"), frame, i});
    }
    return records;
}

std::vector<LiveWindow> live(const std::vector<WindowRecord> &records)
{
    std::vector<LiveWindow> windows;
    for (const WindowRecord &record : records)
        windows.push_back({qint64(windows.size()), record.bundleID, record.title, record.frame});
    return windows;
}

Layout layout(const QString &configID, int count)
{
    return {configID,
            QStringLiteral("Desk setup"),
            QStringLiteral("Default"),
            moment(),
            displays(),
            windows(count)};
}

LayoutFile desks(int count)
{
    LayoutFile file;
    for (int i = 0; i < count; ++i)
        file.layouts.push_back(layout(deskID(i), windowsOnADesk));
    return file;
}

SceneFile scenes(int count)
{
    SceneFile file;
    for (int i = 0; i < count; ++i) {
        SceneRecord scene;
        scene.name = QStringLiteral("Scene %1").arg(i);
        scene.id = uuid(scene.name);
        scene.configID = deskID(i % desksWithScenes);
        scene.createdAt = moment();
        scene.hotKey = HotKeyCombo{quint32(i % 128), HotKeyCombo::command | HotKeyCombo::option};
        scene.layout = layout(scene.configID, windowsOnADesk);
        file.scenes.push_back(std::move(scene));
    }
    return file;
}

std::vector<TriggerRecord> triggers(int count)
{
    std::vector<TriggerRecord> triggers;
    for (int i = 0; i < count; ++i) {
        TriggerRecord trigger{uuid(QStringLiteral("trigger %1").arg(i)),
                              uuid(QStringLiteral("Scene %1").arg(i)),
                              {CalendarVideoTrigger{5}},
                              true};
        if (i % 2 == 0)
            trigger.kind = {TimeTrigger{i % 24, i % 60, {2, 3, 4, 5, 6}}};
        triggers.push_back(std::move(trigger));
    }
    return triggers;
}

} // namespace Panorel::Samples
