#include "Panorel/SettingsProgram.h"

#include <QSignalSpy>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString sectionKey = QStringLiteral("settingsSelectedSection");
constexpr HotKeyCombo freeKey{18, HotKeyCombo::control | HotKeyCombo::option};

/// The program with its settings open.
struct Settings : SettingsProgram {
    QSignalSpy changes{&model, &SettingsModel::changed};

    bool isKeyTaken(const HotKeyCombo &combo)
    {
        return std::ranges::any_of(platform.keys.registered,
                                   [&](const auto &entry) { return entry.second == combo; });
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
};

} // namespace

class SettingsModelTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePaneOfTheLastLaunchOpens_data()
    {
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<SettingsSection>("opened");
        const char *names[] = {"general", "displays", "shortcuts", "scenes", "automation", "about"};
        for (int i = 0; i < 6; ++i)
            QTest::newRow(names[i])
                << QVariant(QString::fromLatin1(names[i])) << SettingsSection(i);
        QTest::newRow("no pane's name")
            << QVariant(QStringLiteral("About")) << SettingsSection::General;
        QTest::newRow("not text") << QVariant(4.0) << SettingsSection::General;
    }

    void thePaneOfTheLastLaunchOpens()
    {
        QFETCH(QVariant, stored);
        QFETCH(SettingsSection, opened);
        Settings settings;
        QVariant &value = settings.platform.defaults.values[sectionKey];
        value = stored;
        QCOMPARE(SettingsModel(*settings.controller, settings.services()).selectedSection(),
                 opened);
        QCOMPARE(value, stored);                   // opening writes nothing
        for (int round = 1; round <= 2; ++round) { // the same pane again is stored again
            value.clear();
            settings.model.setSelectedSection(opened);
            QCOMPARE(settings.model.selectedSection(), opened);
            QVERIFY(!value.isNull());
            QCOMPARE(settings.changes.size(), round);
        }
        if (stored == QLatin1String(QTest::currentDataTag()))
            QCOMPARE(value, stored);
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
        // In ten minutes, every day.
        const QTime then =
            QDateTime::fromMSecsSinceEpoch(settings.dir.clock.now().time_since_epoch() / 1ms)
                .time()
                .addSecs(600);
        TriggerRecord trigger{
            QUuid::createUuid(), scene, {TimeTrigger{then.hour(), then.minute(), {}}}, true};
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

    void aDeskIsRenamedAndForgotten()
    {
        Settings settings;
        settings.model.addSceneFromCurrentWindows();
        const QString desk = settings.model.layouts().at(0).configID;
        settings.model.renameDesk(settings.model.layouts().at(0).configID,
                                  QStringLiteral("Office"));
        QCOMPARE(settings.model.deskName(desk), QStringLiteral("Office"));
        QCOMPARE(settings.panel.deskName(), QStringLiteral("Office"));
        settings.model.forgetDesk(settings.model.layouts().at(0).configID);
        QVERIFY(settings.layouts().empty() && settings.model.layouts().empty());
        QVERIFY(PlacementMemory(settings.dir.log, settings.dir.clock)
                    .windows(desk, QStringLiteral("mail"))
                    .empty());
        QCOMPARE(settings.panel.windowCount(), 0);
        QCOMPARE(settings.model.deskName(desk), QStringLiteral("Desk setup"));
        QCOMPARE(settings.sceneNames().size(), 1);
        QCOMPARE(settings.changes.size(), 3);
    }
};

QTEST_GUILESS_MAIN(SettingsModelTests)
#include "SettingsModelTests.moc"
