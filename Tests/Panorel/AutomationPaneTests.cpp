#include "Panorel/Records.h"
#include "Panorel/Settings/AutomationPane.h"
#include "Panorel/Settings/ScenePicker.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/ViewProbe.h"

#include <QSpinBox>
#include <QTimeEdit>

using namespace Panorel;

namespace {

struct Pane {
    SettingsProgram program;
    AutomationPane pane{program.model};
    ViewProbe view{pane};

    void open() { view.open({700, 560}); }
    ViewProbe openSheet()
    {
        open();
        view.click("Add trigger…");
        return ViewProbe::dialog();
    }
    std::vector<TriggerRecord> triggers() { return program.model.triggers(); }
    void add(const QUuid &scene, const TriggerKind &kind)
    {
        program.model.addTrigger({QUuid::createUuid(), scene, kind, true});
    }
};

const TriggerKind everyMorning{TimeTrigger{9, 5, {}}};

} // namespace

class AutomationPaneTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); }

    void aTimeTriggerIsAdded()
    {
        Pane test;
        test.program.addScene("Writing");
        const QUuid mail = test.program.addScene("Mail").id;
        test.open();
        test.view.photograph("automation-empty");
        QVERIFY(test.view.tabTo(test.view.find("Add trigger…")));
        test.view.press(Qt::Key_Return);
        const ViewProbe sheet = ViewProbe::dialog();
        QVERIFY(sheet.reads("No days selected means every day."));
        QVERIFY(sheet.titles().contains(QStringLiteral("Mo|Di|Mi|Do|Fr|Sa|So")));
        QVERIFY(sheet.tabTo(sheet.shown<QTimeEdit>().at(0)));
        sheet.press(Qt::Key_Up); // the hour
        for (const char *day : {"Mo", "So"}) {
            QVERIFY(sheet.tabTo(sheet.find(day)));
            sheet.press(Qt::Key_Space);
        }
        QVERIFY(sheet.tabTo(sheet.shown<ScenePicker>().at(0)));
        sheet.press(Qt::Key_Down);
        sheet.photograph("automation-sheet");
        QVERIFY(sheet.tabTo(sheet.find("Add trigger")));
        sheet.press(Qt::Key_Return);
        QCOMPARE(test.triggers().size(), 1u);
        const TriggerRecord trigger = test.triggers().at(0);
        QCOMPARE(trigger.kind, (TriggerKind{TimeTrigger{10, 0, {1, 2}}}));
        QCOMPARE(trigger.sceneID, mail);
        QVERIFY(trigger.enabled && test.view.reads("At 10:00 on Sun, Mon"));
    }

    void aMeetingTriggerAsksForTheCalendar()
    {
        Pane test;
        test.program.platform.events.status = CalendarAuthorization::Denied;
        test.program.addScene("Writing");
        const ViewProbe sheet = test.openSheet();
        QVERIFY(!sheet.find("Grant calendar access…"));
        QVERIFY(sheet.tabTo(sheet.find("At a time")));
        sheet.press(Qt::Key_Right);
        QVERIFY(sheet.reads("Calendar access needed"));
        auto *lead = sheet.shown<QSpinBox>().at(0);
        QVERIFY(lead->minimum() == 0 && lead->maximum() == 60 && sheet.tabTo(lead));
        sheet.press(Qt::Key_Up);
        sheet.photograph("automation-sheet-meeting");
        sheet.click("Add trigger");
        QCOMPARE(test.triggers().at(0).kind, TriggerKind{CalendarVideoTrigger{6}});

        QVERIFY(test.view.reads("Calendar access needed"));
        test.view.click("Grant calendar access…"); // refused
        QVERIFY(test.view.reads("Calendar access needed"));
        test.program.platform.events.status = CalendarAuthorization::FullAccess;
        test.view.click("Grant calendar access…");
        QVERIFY(!test.view.reads("Calendar access needed"));
    }

    void withoutScenesTheSheetSaysSoAndMakesOne()
    {
        Pane test;
        const ViewProbe sheet = test.openSheet();
        QVERIFY(sheet.reads("There is no scene to apply yet."));
        QVERIFY(!sheet.find("Add trigger")->isEnabled());
        sheet.photograph("automation-sheet-no-scenes");
        QTest::keyClick(&sheet.root, Qt::Key_Return); // not even so
        QVERIFY(test.triggers().empty());
        sheet.click("Add scene");
        QVERIFY(!sheet.reads("There is no scene to apply yet."));
        sheet.click("Add trigger");
        QCOMPARE(test.triggers().at(0).sceneID, test.program.model.scenes().at(0).id);
    }

    void theChosenSceneStaysChosenWhileOthersComeAndGo()
    {
        ScenePicker picker;
        const SceneRecord first = scene("first"), second = scene("second"), third = scene("third");
        picker.setGroups({{{}, {}, true, {first, second}}});
        QCOMPARE(picker.scene(), first.id);
        picker.choose(second.id);
        // Another desk brings headings, which can't be chosen.
        picker.setGroups({{{}, QStringLiteral("A"), true, {third}},
                          {QStringLiteral("b"), QStringLiteral("B"), false, {first, second}}});
        QCOMPARE(picker.scene(), second.id);
        QTest::keyClick(&picker, Qt::Key_Home);
        QCOMPARE(picker.scene(), third.id);
        picker.choose(second.id);
        picker.setGroups({{{}, {}, true, {first}}});
        QCOMPARE(picker.scene(), first.id);
        picker.setGroups({});
        QCOMPARE(picker.scene(), std::nullopt);
    }

    void triggersAreSwitchedRemovedAndBroughtBack()
    {
        Pane test;
        const QUuid scene = test.program.addScene("Writing").id;
        test.add(scene, everyMorning);
        test.add(scene, {CalendarVideoTrigger{5}});
        test.add(QUuid::createUuid(), {TimeTrigger{18, 0, {2, 3, 4, 5, 6}}});
        test.open();
        QVERIFY(test.view.reads("deleted scene"));
        const QByteArray when = everyMorning.description().toUtf8();
        QVERIFY(test.view.find(when)->isChecked());
        QVERIFY(test.view.tabTo(test.view.find(when)));
        test.view.press(Qt::Key_Space);
        QVERIFY(!test.triggers().at(0).enabled && test.view.find(when)->hasFocus());
        test.program.platform.events.status = CalendarAuthorization::NotDetermined;
        test.program.model.refresh();
        test.view.photograph("automation");
        test.view.press(Qt::Key_Tab); // to what removes it
        test.view.press(Qt::Key_Return);
        QCOMPARE(test.triggers().size(), 2u);
        QVERIFY(!test.view.find(when));
        test.view.press(Qt::Key_Space); // at once: the way back
        QCOMPARE(test.triggers().size(), 3u);
        QCOMPARE(test.triggers().at(2).kind, everyMorning);
        QVERIFY(!test.triggers().at(2).enabled && !test.view.find(when)->isChecked());
    }
};

QTEST_MAIN(AutomationPaneTests)
#include "AutomationPaneTests.moc"
