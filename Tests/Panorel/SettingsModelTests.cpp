#include "Panorel/InMemoryProgram.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/Settings/UpdaterCenter.h"

#include <QSignalSpy>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString sectionKey = QStringLiteral("settingsSelectedSection");
constexpr HotKeyCombo stashKey{1, HotKeyCombo::option | HotKeyCombo::shift};
constexpr HotKeyCombo freeKey{18, HotKeyCombo::control | HotKeyCombo::option};

/// The program with its settings open.
struct Settings : Program {
    SettingsModel model{*controller, AppServices{platform, *watcher, hotKeys, *prefs, scheduler,
                                                 dir.log, dir.clock}};
    QSignalSpy changes{&model, &SettingsModel::changed};

    bool isKeyTaken(const HotKeyCombo &combo)
    {
        return std::ranges::any_of(platform.keys.registered,
                                   [&](const auto &entry) { return entry.second == combo; });
    }
    QStringList sceneNames()
    {
        QStringList names;
        for (const SceneRecord &scene : model.scenes())
            names << scene.name;
        return names;
    }
    /// The rows as "name:identifier", with what was decided.
    QStringList rules()
    {
        QStringList rows;
        for (const RuleRow &row : model.rules())
            rows << row.appName + u':' + row.rule.bundleID
                        + (row.rule.ignored ? QStringLiteral(" ignored") : QString());
        return rows;
    }
    /// Ten minutes from now, every day.
    TriggerRecord soon(const QUuid &sceneID)
    {
        const QTime time =
            QDateTime::fromMSecsSinceEpoch(dir.clock.now().time_since_epoch() / 1ms).time();
        const QTime then = time.addSecs(600);
        return {QUuid::createUuid(), sceneID, {TimeTrigger{then.hour(), then.minute(), {}}}, true};
    }
};

} // namespace

class SettingsModelTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePaneOfTheLastLaunchOpens_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<int>("opened");
        const char *names[] = {"general", "displays", "shortcuts", "scenes", "automation", "about"};
        for (int i = 0; i < 6; ++i)
            QTest::newRow(names[i]) << QVariant(QString::fromLatin1(names[i])) << i;
        QTest::newRow("no pane's name") << QVariant(QStringLiteral("plugins")) << 0;
        QTest::newRow("another case") << QVariant(QStringLiteral("About")) << 0;
        QTest::newRow("empty") << QVariant(QString()) << 0;
        QTest::newRow("not text") << QVariant(4.0) << 0;
    }

    void thePaneOfTheLastLaunchOpens()
    {
        QFETCH(QVariant, stored);
        QFETCH(int, opened);
        Settings settings;
        settings.platform.defaults.values[sectionKey] = stored;
        SettingsModel next(*settings.controller,
                           {settings.platform, *settings.watcher, settings.hotKeys, *settings.prefs,
                            settings.scheduler, settings.dir.log, settings.dir.clock});
        QCOMPARE(int(next.selectedSection()), opened);
        QCOMPARE(settings.platform.defaults.values[sectionKey], stored); // opening writes nothing

        settings.platform.defaults.remove(sectionKey);
        QCOMPARE(int(settings.model.selectedSection()), 0);
        for (int round = 1; round <= 2; ++round) { // the same pane again is stored again
            settings.platform.defaults.remove(sectionKey);
            settings.model.setSelectedSection(SettingsSection(opened));
            QCOMPARE(int(settings.model.selectedSection()), opened);
            QVERIFY(settings.platform.defaults.text(sectionKey));
            QCOMPARE(settings.changes.size(), round);
        }
        if (stored.toString() == QString::fromLatin1(QTest::currentDataTag()))
            QCOMPARE(settings.platform.defaults.text(sectionKey), stored.toString());
        settings.model.setLayoutsSection(LayoutsSection::Rules);
        QCOMPARE(settings.model.layoutsSection(), LayoutsSection::Rules);
        QCOMPARE(settings.changes.size(), 3);
    }

    void aSceneIsNumberedByItsDeskAndListedAtOnce()
    {
        Settings settings;
        settings.panel.onSaveScene();
        settings.panel.onSaveScene();
        settings.panel.setLastAction(QStringLiteral("as before"));
        QCOMPARE(settings.model.addSceneFromCurrentWindows().name, QStringLiteral("Scene 3"));
        QCOMPARE(settings.changes.size(), 1);
        QCOMPARE(settings.sceneNames().size(), 3);
        QCOMPARE(settings.panel.scenes().size(), 3u);
        QCOMPARE(settings.panel.lastAction(), QStringLiteral("as before"));

        // The dock has gone and nobody has announced the new desk yet.
        const QString docked = settings.model.currentConfigID();
        settings.undock();
        const SceneRecord scene = settings.model.addSceneFromCurrentWindows();
        QVERIFY(scene.configID != docked);
        QCOMPARE(scene.configID, settings.model.currentConfigID());
        QCOMPARE(settings.model.displays().size(), 1u);
        QCOMPARE(scene.name, QStringLiteral("Scene 1"));
        QCOMPARE(scene.layout.displays.size(), 1u);
    }

    void whatASceneChangesIsInForceAtOnce()
    {
        Settings settings;
        const QUuid id = settings.model.addSceneFromCurrentWindows().id;
        SceneRecord scene = *settings.model.scene(id);
        scene.name = QStringLiteral("Writing");
        scene.hotKey = freeKey;
        settings.model.updateScene(scene);
        QCOMPARE(settings.sceneNames(), QStringList{scene.name});
        QCOMPARE(settings.panel.scenes().at(0).name, scene.name);
        settings.platform.keys.press(freeKey);
        QCOMPARE(settings.panel.lastAction(), QStringLiteral("Applied Writing: 2 windows"));

        settings.model.removeScene(settings.model.scenes().at(0).id); // the list's own
        QVERIFY(settings.model.scenes().empty() && settings.panel.scenes().empty());
        QVERIFY(!settings.model.scene(id) && !settings.isKeyTaken(freeKey));
        settings.model.updateScene(scene); // it does not come back so
        QVERIFY(settings.model.scenes().empty() && !settings.isKeyTaken(freeKey));
        settings.model.addScene(scene);
        QCOMPARE(settings.panel.scenes(), std::vector{scene});
        QVERIFY(settings.isKeyTaken(freeKey));
        QCOMPARE(settings.changes.size(), 5);
        settings.desktop.window(settings.mail).frame = clampedPlace;
        settings.model.applyScene(id);
        QCOMPARE(settings.mailFrame(), rightPlace);
        QCOMPARE(settings.model.usage().sceneSwitches, 2);
    }

    void aTriggerFiresAsItStandsNow()
    {
        Settings settings;
        const QUuid scene = settings.model.addSceneFromCurrentWindows().id;
        const QString nothing = QStringLiteral("nothing yet");
        const QString applied = QStringLiteral("Applied Scene 1: 2 windows");
        TriggerRecord trigger = settings.soon(scene);
        settings.panel.setLastAction(nothing);
        const auto afterADay = [&] {
            settings.panel.setLastAction(nothing);
            settings.scheduler.advance(24h);
            return settings.panel.lastAction();
        };
        settings.model.addTrigger(trigger);
        QCOMPARE(settings.model.triggers(), std::vector{trigger});
        settings.scheduler.advance(9min);
        QCOMPARE(settings.panel.lastAction(), nothing);
        settings.scheduler.advance(1min);
        QCOMPARE(settings.panel.lastAction(), applied);
        trigger.enabled = false;
        settings.model.updateTrigger(trigger);
        QCOMPARE(settings.model.triggers(), std::vector{trigger}); // also those off
        QCOMPARE(afterADay(), nothing);
        trigger.enabled = true;
        settings.model.updateTrigger(trigger);
        QCOMPARE(afterADay(), applied);
        settings.model.removeTrigger(settings.model.triggers().at(0).id);
        QCOMPARE(afterADay(), nothing);
        QVERIFY(settings.model.triggers().empty());
    }

    void theRulesHoldEveryApplicationThatWasEverSeen()
    {
        Settings settings;
        QCOMPARE(settings.rules(),
                 QStringList({QStringLiteral("Editor:editor"), QStringLiteral("Mail:mail")}));
        settings.model.setRule(
            {QStringLiteral("gone"), true, false}); // its windows are in no layout
        settings.model.setRule({QStringLiteral("mail"), true, false});
        settings.desktop.open(
            settings.desktop.launch(QStringLiteral("browser"), QStringLiteral("browser")), {},
            leftPlace);
        settings.undock();
        settings.scheduler.advance(2min); // another desk, and another application on it
        settings.model.refresh();
        QCOMPARE(settings.model.layouts().size(), 2u);
        settings.desktop.open(
            settings.desktop.launch(QStringLiteral("radio"), QStringLiteral("Radio")), {},
            leftPlace);
        settings.model.addSceneFromCurrentWindows(); // one that is only in a scene
        const QStringList all{QStringLiteral("browser:browser"), QStringLiteral("Editor:editor"),
                              QStringLiteral("gone:gone ignored"),
                              QStringLiteral("Mail:mail ignored"), QStringLiteral("Radio:radio")};
        QCOMPARE(settings.rules(), all);
        settings.start();
        QCOMPARE(settings.controller->rules().rule(QStringLiteral("mail")).ignored, true);
    }

    void keysCollideWithWhatElseHasThem()
    {
        Settings settings;
        SettingsModel &model = settings.model;
        SceneRecord scene = model.addSceneFromCurrentWindows();
        settings.changes.clear();
        QCOMPARE(model.key(FixedAction::Stash), stashKey);
        QCOMPARE(model.collisions(stashKey, keyID(FixedAction::Undo)),
                 QStringList{QStringLiteral("Stash")});
        QCOMPARE(model.collisions(stashKey, keyID(FixedAction::Stash)), QStringList());
        model.setKey(FixedAction::Undo, stashKey);
        scene.hotKey = stashKey;
        model.updateScene(scene);
        QStringList others = model.collisions(stashKey, keyID(FixedAction::Stash));
        others.sort();
        QCOMPARE(others,
                 QStringList({QStringLiteral("Scene 1"), QStringLiteral("Undo last restore")}));
        QCOMPARE(model.collisions(stashKey, keyID(scene)).size(), 2);
        QCOMPARE(model.keyText(stashKey), QStringLiteral("Alt+Shift+S"));

        model.setKey(FixedAction::Stash, {});
        model.setKey(FixedAction::Undo, freeKey);
        QVERIFY(!model.key(FixedAction::Stash) && settings.prefs->undoHotKey() == freeKey);
        QCOMPARE(model.collisions(stashKey, {}), QStringList{QStringLiteral("Scene 1")});
        QCOMPARE(model.collisions(freeKey, {}), QStringList{QStringLiteral("Undo last restore")});
        QCOMPARE(settings.changes.size(), 4);
    }

    void aDeskIsRenamedAndForgotten()
    {
        Settings settings;
        settings.model.addSceneFromCurrentWindows();
        const QString desk = settings.model.layouts().at(0).configID;
        QCOMPARE(settings.model.deskName(desk), QStringLiteral("Desk setup"));
        settings.model.renameDesk(settings.model.layouts().at(0).configID,
                                  QStringLiteral("Office"));
        QCOMPARE(settings.model.layouts().at(0).name, QStringLiteral("Office"));
        QCOMPARE(settings.panel.deskName(), QStringLiteral("Office"));
        settings.model.forgetDesk(settings.model.layouts().at(0).configID);
        QVERIFY(settings.model.layouts().empty());
        QCOMPARE(settings.panel.windowCount(), 0);
        QCOMPARE(settings.model.deskName(desk), QStringLiteral("Desk setup"));
        QCOMPARE(settings.sceneNames().size(), 1);
        QCOMPARE(settings.changes.size(), 3);
    }

    void updatesAreKeptByTheUpdater()
    {
        InMemoryPlatform platform;
        UpdaterPort &port = *platform.updater();
        for (const bool asked : {false, true}) {
            platform.checksForUpdates = !asked;
            UpdaterCenter center(port);
            QSignalSpy changes(&center, &UpdaterCenter::changed);
            QCOMPARE(center.automaticallyChecksForUpdates(), !asked);
            center.setAutomaticallyChecksForUpdates(asked);
            QCOMPARE(center.automaticallyChecksForUpdates(), asked);
            QCOMPARE(platform.checksForUpdates, asked);
            QCOMPARE(changes.size(), 1);
            center.checkForUpdates();
        }
        QCOMPARE(platform.updateChecks, 2);
    }
};

QTEST_GUILESS_MAIN(SettingsModelTests)
#include "SettingsModelTests.moc"
