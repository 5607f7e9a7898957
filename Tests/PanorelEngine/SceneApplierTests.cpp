#include "EngineDesk.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelEngine/Scenes/SceneApplier.h"

#include <QTest>

using namespace Panorel;

namespace {

const QString editorID = QStringLiteral("editor");
const QString mailID = QStringLiteral("mail");
const QString musicID = QStringLiteral("music");

/// An editor and a mail program run, the mail in front; a scene shows the editor alone.
struct Desk : EngineDesk {
    SceneStore scenes{dir.log, dir.clock};
    SceneApplier applier{
        engine, scenes, usage, desktop, platform.launcher(), platform.desktopPicture(), dir.log};
    ProcessIdentifier editor = desktop.add(editorID, QStringLiteral("Editor"));
    ProcessIdentifier mail = desktop.add(mailID, QStringLiteral("Mail"));
    int notes = desktop.open(editor, QStringLiteral("Notes"), {100, 100, 400, 300});
    int inbox = desktop.open(mail, QStringLiteral("Inbox"), {600, 100, 500, 400});
    SceneRecord scene;

    Desk()
    {
        scene.id = QUuid::createUuid();
        scene.configID = QStringLiteral("home");
        scene.layout.windows = {
            {editorID, editorID, QStringLiteral("Notes"), {}, {10, 20, 410, 310}, 0}};
    }
};

} // namespace

class SceneApplierTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theScenesWindowsComeForwardAndTheRestStays()
    {
        Desk desk;
        QCOMPARE(desk.applier.apply(desk.scene, false).restored, 1);
        const auto windows = desk.onScreen();
        QVERIFY(windows[0].frame == (Rect{10, 20, 400, 300}));
        QVERIFY(windows[1].frame == (Rect{600, 100, 500, 400}));
        QCOMPARE(desk.scenes.lastApplied(QStringLiteral("home")), desk.scene.id);
        desk.applier.apply(desk.scene, true);
        QVERIFY(desk.onScreen()[0].frame == (Rect{10, 20, 410, 310}));
    }

    void missingApplicationsAreStartedWhereTheyAreInstalled()
    {
        Desk desk;
        for (const QString &bundleID : {mailID, musicID, musicID, QStringLiteral("unknown")})
            desk.scene.layout.windows.push_back({bundleID, bundleID, {}, {}, {}, 1});
        desk.desktop.applications().back().policy = ActivationPolicy::Accessory; // runs, too
        desk.platform.installed = {editorID, mailID, musicID};
        desk.applier.apply(desk.scene, true);
        QVERIFY(desk.platform.opened.isEmpty()); // not asked for
        desk.scene.opensMissingApps = true;
        desk.applier.apply(desk.scene, true);
        QCOMPARE(desk.platform.opened, QStringList{musicID});
    }

    void whatIsNotOfTheSceneIsHidden()
    {
        Desk desk;
        const auto nameless = desk.desktop.add({}, {});
        desk.desktop.add(QStringLiteral("applet"), {}, ActivationPolicy::Accessory);
        desk.desktop.applications().front().policy = ActivationPolicy::Regular; // this program
        desk.desktop.hide(desk.editor);                                         // by a scene before
        desk.scene.hidesOtherApps = true;
        desk.scene.wallpaperPath = QStringLiteral("/pictures/sea.png");
        desk.applier.apply(desk.scene, true);
        std::set<ProcessIdentifier> hidden;
        for (const RunningApplication &running : desk.desktop.runningApplications()) {
            if (running.isHidden)
                hidden.insert(running.pid);
        }
        QVERIFY(hidden == (std::set{desk.mail, nameless}));
        QCOMPARE(desk.platform.pictures, QStringList{QStringLiteral("/pictures/sea.png")});
    }
};

QTEST_GUILESS_MAIN(SceneApplierTests)
#include "SceneApplierTests.moc"
