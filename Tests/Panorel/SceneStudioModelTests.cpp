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
    void windowsOfApplicationsThatDoNotRunAreGhosts()
    {
        Studio studio;
        studio.add("mail");
        studio.add("editor");
        studio.add("helper");
        studio.desktop.launch(QStringLiteral("helper"), {}, ActivationPolicy::Prohibited);
        const SceneStudioModel &model = studio.open();
        const bool ghosts[] = {false, true, false, false};
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(model.box(i)->isGhost, ghosts[i]);
            QVERIFY(studio.record(i) == studio.scene.layout.windows.at(std::size_t(i)));
        }
        QCOMPARE(model.box(4), nullptr);
    }

    void aMovedBoxStaysReachable()
    {
        const struct {
            const char *name;
            Size by;
            Point to;
            const char *display;
        } rows[] = {{"free", {5, -7}, {105, 93}, "right"},
                    {"far left: 60 inside", {-9000, 0}, {-1340, 100}, "left"},
                    {"to the left limit", {-1440, 0}, {-1340, 100}, "left"},
                    {"far right: 60 inside", {9000, 0}, {940, 100}, "right"},
                    {"far up: the top edge inside", {0, -9000}, {100, 0}, "right"},
                    {"far down: 40 to spare", {0, 9000}, {100, 760}, "right"},
                    {"half on each display: the first", {-300, 0}, {-200, 100}, "left"},
                    {"more on the second", {-299, 0}, {-199, 100}, "right"}};
        for (const auto &[name, by, to, display] : rows) {
            Studio studio;
            SceneStudioModel &model = studio.open();
            const QSignalSpy changes(&model, &SceneStudioModel::changed);
            model.move(0, by);
            QVERIFY2(studio.record().frame == Rect({to.x, to.y, 400, 300}), name);
            QCOMPARE(studio.record().displayUUID, QString::fromLatin1(display));
            model.move(0, {0, 0});
            model.move(17, {5, 5});
            QCOMPARE(changes.size(), 1);
        }
    }

    void theUpperLimitHoldsWhereTheLimitsCross()
    {
        Studio studio;
        studio.scene.layout.displays = {display("tiny", {0, 0, 100, 30})};
        studio.scene.layout.windows = {window("editor", "", {0, 0, 5, 5})};
        studio.open().move(0, {0, 0});
        QVERIFY(studio.record().frame == Rect({40, -10, 5, 5}));
    }

    void aResizedBoxKeepsItsOriginAndASmallestSize()
    {
        Studio studio;
        SceneStudioModel &model = studio.open();
        const QSignalSpy changes(&model, &SceneStudioModel::changed);
        model.resize(0, {9000, 8000});
        QVERIFY(studio.record().frame == Rect({100, 100, 9400, 8300}));
        model.resize(0, {-9200, -8150});
        QVERIFY(studio.record().frame == Rect({100, 100, 200, 150}));
        model.resize(0, {-1, -1});
        QCOMPARE(changes.size(), 2);
        model.resize(17, {5, 5});
        QCOMPARE(changes.size(), 2);
        QCOMPARE(studio.record().displayUUID, QStringLiteral("right"));

        studio.scene.layout.windows = {window("editor", "", {-300, 100, 350, 200})};
        studio.open().resize(0, {251, 0}); // 300 on the left display, 301 on the right one
        QCOMPARE(studio.record().displayUUID, QStringLiteral("right"));
    }

    void withoutDisplaysNothingIsHeld()
    {
        Studio studio;
        studio.scene.layout.displays.clear();
        SceneStudioModel &model = studio.open();
        QVERIFY(model.bounds() == Rect());
        model.move(0, {-9000, 9000});
        QVERIFY(studio.record().frame == Rect({-8900, 9100, 400, 300}));
        QCOMPARE(studio.record().displayUUID, QStringLiteral("as saved"));
        const int added = model.addApp(QStringLiteral("mail"), QStringLiteral("Mail"));
        QVERIFY(studio.record(added).frame == Rect({-450, -300, 900, 600}));
        QCOMPARE(studio.record(added).displayUUID, QString());
    }

    void removedBoxesAreGoneAndIdsAreNotUsedAgain()
    {
        Studio studio;
        studio.add("mail");
        studio.add("chat");
        SceneStudioModel &model = studio.open();
        const QSignalSpy changes(&model, &SceneStudioModel::changed);
        model.removeBox(1);
        model.removeBox(1);
        QCOMPARE(changes.size(), 1);
        QCOMPARE(model.boxes().front().id, 0);
        QCOMPARE(model.boxes().back().id, 2);
        const int added = model.addApp(QStringLiteral("mail"), QStringLiteral("Mail"));
        QCOMPARE(added, 3);
        model.removeBox(added);
        QCOMPARE(model.addApp(QStringLiteral("mail"), QStringLiteral("Mail")), 4);
        QCOMPARE(changes.size(), 4);
    }

    void anAddedApplicationComesLastAndInTheMiddle()
    {
        const struct {
            const char *name;
            Rect first, second; // displays
            const char *chosen;
        } cases[] = {{"on both: the first", {-1000, -100, 1000, 800}, {0, -100, 1000, 800}, "a"},
                     {"the first elsewhere", {-1000, -100, 200, 800}, {-500, -100, 1500, 800}, "b"},
                     {"between: the first", {-1000, -100, 100, 800}, {900, -100, 100, 800}, "a"}};
        for (const auto &[name, first, second, chosen] : cases) {
            Studio studio;
            studio.scene.layout.displays = {display("a", first), display("b", second)};
            SceneStudioModel &model = studio.open();
            WindowRecord expected = window("Mail", "", {-450, 0, 900, 600});
            expected.displayUUID = QString::fromLatin1(chosen);
            const int id = model.addApp(QStringLiteral("mail"), QStringLiteral("Mail"));
            QCOMPARE(model.boxes().back().id, id);
            QVERIFY(!model.boxes().back().isGhost);
            QVERIFY2(studio.record(id) == expected, name);
        }
    }

    void ordinaryApplicationsWithoutABoxCanBeAdded()
    {
        Studio studio;
        SceneStudioModel &model = studio.open();
        studio.desktop.launch(QStringLiteral("zip"), QStringLiteral("Archiver"));
        studio.desktop.launch(QStringLiteral("mail.b"), QStringLiteral("Mail"));
        studio.desktop.launch(QStringLiteral("mail.a"), QStringLiteral("Mail"));
        studio.desktop.launch(QStringLiteral("nameless"), {});
        studio.desktop.launch(QStringLiteral("tray"), QStringLiteral("B"),
                              ActivationPolicy::Accessory);
        studio.desktop.add({}, QStringLiteral("A"));
        studio.desktop.applications().front().policy = ActivationPolicy::Regular; // Panorel itself
        const auto ids = [&model] {
            QStringList result;
            for (const SceneStudioModel::App &app : model.addableApps())
                result << app.bundleID;
            return result.join(u' ');
        };
        QCOMPARE(ids(), QStringLiteral("zip mail.b mail.a nameless")); // equal names as they run
        QCOMPARE(model.addableApps().back().name, QStringLiteral("nameless"));
        model.removeBox(0);
        model.addApp(QStringLiteral("mail.b"), QStringLiteral("Mail"));
        QCOMPARE(ids(), QStringLiteral("zip editor mail.a nameless"));
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
