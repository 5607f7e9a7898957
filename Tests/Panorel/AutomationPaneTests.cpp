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

    ViewProbe openSheet()
    {
        view.open({700, 560});
        view.click("Add trigger…");
        return ViewProbe::dialog();
    }
    std::vector<TriggerRecord> triggers() { return program.model.triggers(); }
};

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
        const ViewProbe sheet = test.openSheet();
        QVERIFY(sheet.tabTo(sheet.shown<QTimeEdit>().at(0)));
        sheet.press(Qt::Key_Up); // the hour
        for (const char *day : {"Mo", "So"}) {
            QVERIFY(sheet.tabTo(sheet.find(day)));
            sheet.press(Qt::Key_Space);
        }
        QVERIFY(sheet.tabTo(sheet.shown<ScenePicker>().at(0)));
        sheet.press(Qt::Key_Down);
        sheet.photograph("automation-sheet");
        sheet.click("Add trigger");
        const TriggerRecord trigger = test.triggers().at(0);
        QCOMPARE(trigger.kind, (TriggerKind{TimeTrigger{10, 0, {1, 2}}}));
        QCOMPARE(trigger.sceneID, mail);
        QVERIFY(trigger.enabled && test.view.reads("At 10:00 on Sun, Mon"));
    }

    void aMeetingTriggerAsksForTheCalendar()
    {
        Pane test;
        auto &status = test.program.platform.events.status;
        status = CalendarAuthorization::Denied;
        test.program.addScene("Writing");
        const ViewProbe sheet = test.openSheet();
        QVERIFY(sheet.tabTo(sheet.find("At a time")));
        sheet.press(Qt::Key_Right);
        QVERIFY(sheet.tabTo(sheet.shown<QSpinBox>().at(0)));
        sheet.press(Qt::Key_Up);
        sheet.photograph("automation-sheet-meeting");
        sheet.click("Add trigger");
        QCOMPARE(test.triggers().at(0).kind, TriggerKind{CalendarVideoTrigger{6}});

        for (const auto answer :
             {CalendarAuthorization::Denied, CalendarAuthorization::FullAccess}) {
            QVERIFY(test.view.reads("Calendar access needed"));
            status = answer;
            test.view.click("Grant calendar access…");
        }
        QVERIFY(!test.view.reads("Calendar access needed"));
    }

    void triggersAreSwitchedRemovedAndBroughtBack()
    {
        Pane test;
        const TriggerKind everyMorning{TimeTrigger{9, 5, {}}};
        for (const TriggerKind &kind : {everyMorning, TriggerKind{CalendarVideoTrigger{5}}})
            test.program.model.addTrigger({QUuid::createUuid(), QUuid::createUuid(), kind, true});
        test.view.open({700, 560});
        QVERIFY(test.view.reads("deleted scene"));
        const QByteArray when = everyMorning.description().toUtf8();
        QVERIFY(test.view.tabTo(test.view.find(when)));
        test.view.press(Qt::Key_Space);
        QVERIFY(!test.triggers().at(0).enabled && test.view.find(when)->hasFocus());
        test.view.photograph("automation");
        test.view.press(Qt::Key_Tab); // to what removes it
        test.view.press(Qt::Key_Return);
        QCOMPARE(test.triggers().size(), 1u);
        test.view.press(Qt::Key_Space); // at once: the way back
        QCOMPARE(test.triggers().at(1).kind, everyMorning);
        QVERIFY(!test.triggers().at(1).enabled && !test.view.find(when)->isChecked());
    }
};

QTEST_MAIN(AutomationPaneTests)
#include "AutomationPaneTests.moc"
