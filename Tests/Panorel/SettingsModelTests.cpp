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
    void thePaneOfTheLastLaunchOpens()
    {
        Settings settings;
        QVariant &stored = settings.platform.defaults.values[sectionKey];
        const auto opened = [&] {
            return SettingsModel(*settings.controller, settings.services()).selectedSection();
        };
        const char *names[] = {"general", "displays", "shortcuts", "scenes", "automation", "about"};
        for (int i = 0; i < 6; ++i) {
            settings.model.setSelectedSection(SettingsSection(i));
            QCOMPARE(stored, QVariant(QString::fromLatin1(names[i])));
            QCOMPARE(settings.changes.size(), i + 1);
            QCOMPARE(opened(), SettingsSection(i));
        }
        for (const QVariant &other : {QVariant(QStringLiteral("About")), QVariant(4.0)}) {
            stored = other;
            QCOMPARE(opened(), SettingsSection::General);
            QCOMPARE(stored, other); // opening writes nothing
        }
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
        TriggerRecord trigger{QUuid::createUuid(), scene, {TimeTrigger{12, 0, {}}}, true};
        const auto firesWithinADay = [&] {
            settings.panel.setLastAction({});
            settings.scheduler.advance(24h);
            return settings.panel.lastAction() == QStringLiteral("Applied Scene 1: 2 windows");
        };
        settings.model.addTrigger(trigger);
        QVERIFY(firesWithinADay());
        trigger.enabled = false;
        settings.model.updateTrigger(trigger);
        QCOMPARE(settings.model.triggers(), std::vector{trigger}); // also those off
        QVERIFY(!firesWithinADay());
        trigger.enabled = true;
        settings.model.updateTrigger(trigger);
        QVERIFY(firesWithinADay());
        settings.model.removeTrigger(settings.model.triggers().at(0).id);
        QVERIFY(!firesWithinADay() && settings.model.triggers().empty());
    }

    void theRulesHoldEveryApplicationThatWasEverSeen()
    {
        Settings settings;
        settings.model.setRule({QStringLiteral("gone"), true, false}); // in no layout
        settings.model.setRule({QStringLiteral("mail"), true, false});
        const auto open = [&](const QString &id, const QString &name) {
            settings.desktop.open(settings.desktop.launch(id, name), {}, leftPlace);
        };
        open(QStringLiteral("browser"), QStringLiteral("browser"));
        settings.undock();
        settings.scheduler.advance(2min); // another desk, and another application on it
        settings.model.refresh();
        QCOMPARE(settings.model.layouts().size(), 2u);
        open(QStringLiteral("radio"), QStringLiteral("Radio"));
        settings.model.addSceneFromCurrentWindows(); // one that is only in a scene
        QCOMPARE(settings.rules(),
                 QStringList({QStringLiteral("browser:browser"), QStringLiteral("Editor:editor"),
                              QStringLiteral("gone:gone ignored"),
                              QStringLiteral("Mail:mail ignored"), QStringLiteral("Radio:radio")}));
    }

    void aDeskIsRenamedAndForgotten()
    {
        Settings settings;
        settings.model.addSceneFromCurrentWindows();
        const QString desk = settings.model.layouts().at(0).configID;
        settings.model.renameDesk(desk, QStringLiteral("Office"));
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
