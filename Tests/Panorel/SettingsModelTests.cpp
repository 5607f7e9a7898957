#include "Panorel/SettingsProgram.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

constexpr HotKeyCombo freeKey{18, HotKeyCombo::control | HotKeyCombo::option};

} // namespace

class SettingsModelTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSceneIsNumberedByItsDesk()
    {
        SettingsProgram settings;
        settings.panel.onSaveScene();
        QCOMPARE(settings.model.addSceneFromCurrentWindows().name, QStringLiteral("Scene 2"));
        // The dock has gone and nobody has announced the new desk yet.
        settings.undock();
        const SceneRecord scene = settings.model.addSceneFromCurrentWindows();
        QCOMPARE(scene.name, QStringLiteral("Scene 1"));
        QCOMPARE(scene.configID, settings.model.currentConfigID());
        QCOMPARE(scene.layout.displays.size(), 1u);
    }

    void whatASceneChangesIsInForceAtOnce()
    {
        SettingsProgram settings;
        const auto &keys = settings.platform.keys.registered; // three are not of scenes
        const SceneRecord scene = settings.addScene("Writing", freeKey);
        QCOMPARE(settings.panel.scenes(), std::vector{scene});
        settings.desktop.window(settings.mail).frame = clampedPlace;
        settings.platform.keys.press(freeKey);
        QCOMPARE(settings.mailFrame(), rightPlace);
        settings.model.removeScene(settings.model.scenes().at(0).id); // the list's own
        QVERIFY(settings.panel.scenes().empty() && keys.size() == 3);
        settings.model.updateScene(scene); // it does not come back so
        QVERIFY(settings.model.scenes().empty() && keys.size() == 3);
        settings.model.addScene(scene);
        QCOMPARE(settings.panel.scenes(), std::vector{scene});
        QCOMPARE(keys.size(), 4u);
    }

    void aTriggerFiresAsItStandsNow()
    {
        SettingsProgram settings;
        TriggerRecord trigger{
            QUuid::createUuid(), settings.addScene("Writing").id, {TimeTrigger{12, 0, {}}}, true};
        const auto firesWithinADay = [&] {
            settings.panel.setLastAction({});
            settings.scheduler.advance(24h);
            return settings.panel.lastAction() == QStringLiteral("Applied Writing: 2 windows");
        };
        settings.model.addTrigger(trigger);
        QVERIFY(firesWithinADay());
        for (const bool isOn : {false, true}) {
            trigger.enabled = isOn;
            settings.model.updateTrigger(trigger);
            QCOMPARE(firesWithinADay(), isOn);
        }
        settings.model.removeTrigger(settings.model.triggers().at(0).id);
        QVERIFY(!firesWithinADay());
    }

    void theRulesHoldEveryApplicationThatWasEverSeen()
    {
        SettingsProgram settings;
        settings.model.setRule({QStringLiteral("gone"), true, false}); // in no layout
        settings.undock();
        settings.desktop.quit(settings.mailPID);
        settings.scheduler.advance(2min); // another desk
        settings.desktop.open(settings.desktop.launch(QStringLiteral("radio"), QStringLiteral("A")),
                              {}, leftPlace);
        settings.model.addSceneFromCurrentWindows(); // one that is only in a scene
        QStringList rows;
        for (const RuleRow &row : settings.model.rules())
            rows << row.appName + u':' + row.rule.bundleID
                        + (row.rule.ignored ? QStringLiteral(" ignored") : QString());
        QCOMPARE(rows.join(u'|'),
                 QStringLiteral("A:radio|Editor:editor|gone:gone ignored|Mail:mail"));
    }

    void aDeskIsRenamedAndForgotten()
    {
        SettingsProgram settings;
        const QString desk = settings.model.layouts().at(0).configID;
        settings.model.renameDesk(desk, QStringLiteral("Office"));
        QCOMPARE(settings.panel.deskName(), QStringLiteral("Office"));
        settings.model.forgetDesk(settings.model.layouts().at(0).configID);
        QVERIFY(settings.layouts().empty() && settings.model.layouts().empty());
        QVERIFY(PlacementMemory(settings.dir.log, settings.dir.clock)
                    .windows(desk, QStringLiteral("mail"))
                    .empty());
        QCOMPARE(settings.panel.windowCount(), 0);
        QCOMPARE(settings.panel.deskName(), QStringLiteral("Desk setup"));
    }
};

QTEST_GUILESS_MAIN(SettingsModelTests)
#include "SettingsModelTests.moc"
