#include "Panorel/Records.h"
#include "Panorel/SceneStudio/SceneStudioModel.h"
#include "Support/InMemoryPlatform.h"
#include "Support/TestDataDir.h"

#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace Panorel;

namespace {

/// Two displays of 1000 x 800 side by side, the left one at negative x, with one window.
struct Studio {
    TestDataDir dir;
    InMemoryDesktop desktop;
    SceneRecord scene;
    std::vector<SceneRecord> saved;
    std::optional<SceneStudioModel> model;

    Studio()
    {
        scene.name = QStringLiteral("Writing");
        scene.layout.displays = {display("left", {-1000, 0, 1000, 800}),
                                 display("right", {0, 0, 1000, 800})};
        scene.layout.windows = {window("editor", "Notes", {100, 100, 400, 300})};
        scene.layout.windows[0].displayUUID = QStringLiteral("as saved");
        desktop.launch(QStringLiteral("editor"), QStringLiteral("Editor"));
    }
    void add(const char *application)
    {
        scene.layout.windows.push_back(window(application, "", {0, 0, 300, 200}));
    }
    SceneStudioModel &open()
    {
        return model.emplace(scene, desktop, dir.log, dir.clock,
                             [this](const SceneRecord &edited) { saved.push_back(edited); });
    }
    const WindowRecord &record(int id = 0) { return model->box(id)->record; }
};

} // namespace

class SceneStudioModelTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aMovedBoxStaysReachable()
    {
        const struct {
            const char *name;
            Size by;
            Point to;
            const char *display;
        } rows[] = {{"free", {5, -7}, {105, 93}, "right"},
                    {"far left: 60 inside", {-9000, 0}, {-1340, 100}, "left"},
                    {"far up: the top edge inside", {0, -9000}, {100, 0}, "right"},
                    {"far down: 40 to spare", {0, 9000}, {100, 760}, "right"},
                    {"half on each display: the first", {-300, 0}, {-200, 100}, "left"},
                    {"more on the second", {-299, 0}, {-199, 100}, "right"}};
        for (const auto &[name, by, to, display] : rows) {
            Studio studio;
            studio.open().move(0, by);
            QVERIFY2(studio.record().frame == Rect({to.x, to.y, 400, 300}), name);
            QCOMPARE(studio.record().displayUUID, QString::fromLatin1(display));
        }
    }

    void aResizedBoxKeepsItsOriginAndASmallestSize()
    {
        Studio studio;
        SceneStudioModel &model = studio.open();
        model.resize(0, {9000, 8000});
        QVERIFY(studio.record().frame == Rect({100, 100, 9400, 8300}));
        model.resize(0, {-9200, -8150});
        QVERIFY(studio.record().frame == Rect({100, 100, 200, 150}));

        studio.scene.layout.windows = {window("editor", "", {-300, 100, 350, 200})};
        studio.open().resize(0, {251, 0}); // 300 on the left display, 301 on the right one
        QCOMPARE(studio.record().displayUUID, QStringLiteral("right"));
    }

    void removedBoxesAreGoneAndIdsAreNotUsedAgain()
    {
        Studio studio;
        studio.add("mail");
        SceneStudioModel &model = studio.open();
        const QSignalSpy changes(&model, &SceneStudioModel::changed);
        model.removeBox(1);
        model.removeBox(1);
        model.move(1, {5, 5});
        model.resize(1, {5, 5});
        QCOMPARE(changes.size(), 1);
        QCOMPARE(model.addApp(QStringLiteral("mail"), QStringLiteral("Mail")), 2);
    }

    void ordinaryApplicationsWithoutABoxCanBeAdded()
    {
        Studio studio;
        SceneStudioModel &model = studio.open();
        for (const char *id : {"zip", "mail.b", "mail.a"}) // equal names as they run
            studio.desktop.launch(QLatin1String(id), QLatin1String(id).left(4));
        studio.desktop.launch(QStringLiteral("tray"), {}, ActivationPolicy::Accessory);
        studio.desktop.applications().front().policy = ActivationPolicy::Regular; // Panorel itself
        model.removeBox(0);
        const int id = model.addApp(QStringLiteral("mail.b"), QStringLiteral("mail"));
        WindowRecord expected = window("mail", "", {-450, 100, 900, 600}); // in the middle
        expected.bundleID = QStringLiteral("mail.b");
        expected.displayUUID = QStringLiteral("left"); // as much on either display: the first
        QVERIFY(studio.record(id) == expected);
        QStringList ids;
        for (const SceneStudioModel::App &app : model.addableApps())
            ids << app.bundleID;
        QCOMPARE(ids.join(u' '), QStringLiteral("editor mail.a zip"));
    }

    void savingHandsOverTheSceneWithTheBoxesAsTheyAre()
    {
        Studio studio;
        studio.add("mail");
        studio.add("chat");
        studio.scene.layout.windows.back().zOrder = 9;
        SceneStudioModel &model = studio.open();
        model.removeBox(1);
        model.move(0, {20, 0});
        model.addApp(QStringLiteral("zip"), QStringLiteral("Archiver"));
        QVERIFY(studio.saved.empty());
        studio.dir.clock.advance(std::chrono::hours(1));
        model.save();

        SceneRecord expected = studio.scene;
        expected.layout.savedAt = studio.dir.clock.now();
        expected.layout.windows.clear();
        for (const SceneStudioModel::Box &box : model.boxes()) {
            expected.layout.windows.push_back(box.record);
            expected.layout.windows.back().zOrder = qint64(expected.layout.windows.size()) - 1;
        }
        QCOMPARE(expected.layout.windows.size(), 3u);
        QVERIFY(studio.saved == std::vector{expected});
        QCOMPARE(studio.dir.logged().last(), QStringLiteral("scene edited: 3 boxes (1 ghost)"));
    }
};

QTEST_GUILESS_MAIN(SceneStudioModelTests)
#include "SceneStudioModelTests.moc"
