#include "EngineDesk.h"

#include <QTest>

using namespace Panorel;

namespace {

const QString editorID = QStringLiteral("org.example.editor");
const QString mailID = QStringLiteral("org.example.mail");

/// A desk of three windows that was learned and then scattered.
struct Desk : EngineDesk {
    ProcessIdentifier editor = desktop.launch(editorID, QStringLiteral("Editor"));
    ProcessIdentifier mail = desktop.launch(mailID, QStringLiteral("Mail"));
    int notes = desktop.open(editor, QStringLiteral("Notes"), {100, 100, 400, 300});
    int inbox = desktop.open(mail, QStringLiteral("Inbox"), {600, 100, 500, 400});
    int plan = desktop.open(editor, QStringLiteral("Plan"), {50, 500, 420, 310});
    Layout layout;

    Desk()
    {
        layout.configID = QStringLiteral("desk");
        layout.name = QStringLiteral("Home");
        layout.windows = onScreen();
        scatter();
    }

    void scatter()
    {
        double offset = 5;
        for (const int number : {plan, inbox, notes}) {
            desktop.window(number).frame = {offset, offset, 200 + offset, 200};
            offset += 300;
        }
        desktop.raise({desktop.windows(editor).back().element});
        desktop.journal.clear();
        dir.logged();
    }
};

} // namespace

class RestoreEngineTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyWindowComesBackInItsPlaceAndOrder()
    {
        Desk desk;
        bool heldWhileReading = false;
        desk.desktop.duringReading = [&] { heldWhileReading = desk.engine.isRestoring(); };
        const RestoreReport report = desk.engine.apply(desk.layout, true);
        QVERIFY(heldWhileReading && !desk.engine.isRestoring());
        // By application, in the order of the layout; position before size; frontmost raised last.
        QCOMPARE(desk.desktop.journal.join(QStringLiteral(", ")),
                 QStringLiteral("position 3, size 3, position 1, size 1, position 2, size 2, "
                                "raise 1, raise 2, raise 3"));
        QVERIFY(desk.onScreen() == desk.layout.windows);
        QCOMPARE(report.summary(), QStringLiteral("3/3 restored, 0 failed, 0 skipped, 0.00s"));
        QCOMPARE(desk.dir.logged(),
                 QStringList{QStringLiteral("restore report: ") + report.summary()});
    }

    void sizesAreRestoredWhereThePreferenceOrARuleAsks()
    {
        Desk desk;
        desk.rules.set({mailID, false, true});
        desk.engine.apply(desk.layout, false);
        QVERIFY(desk.desktop.window(desk.inbox).frame == (Rect{600, 100, 500, 400}));
        QVERIFY(desk.desktop.window(desk.notes).frame == (Rect{100, 100, 805, 200}));
    }

    void fiveAndAHalfPointsOffIsAFailureAndNotRaised()
    {
        Desk desk;
        desk.desktop.window(desk.notes).landsOff = {5.0, -5.0};
        desk.desktop.window(desk.plan).landsOff = {5.5, 0};
        desk.desktop.window(desk.inbox).landsOff = {0, -5.5};
        const RestoreReport report = desk.engine.apply(desk.layout, true);
        QCOMPARE(report.summary(), QStringLiteral("1/3 restored, 2 failed, 0 skipped, 0.00s"));
        QVERIFY(!desk.desktop.journal.contains(QStringLiteral("raise 3")));
        QCOMPARE(report.notes,
                 (QStringList{QStringLiteral("failed: Editor “Plan”, could not move"),
                              QStringLiteral("failed: Mail “Inbox”, could not move")}));
    }

    void windowsThatMisbehaveFailAlone()
    {
        for (bool InMemoryWindow::*fault :
             {&InMemoryWindow::vanishesWhenMoved, &InMemoryWindow::refusesMoves,
              &InMemoryWindow::losesSizeWhenMoved}) {
            Desk desk;
            desk.desktop.window(desk.notes).*fault = true;
            const RestoreReport report = desk.engine.apply(desk.layout, false);
            QCOMPARE(report.notes,
                     QStringList{QStringLiteral("failed: Editor “Notes”, could not move")});
            QCOMPARE(report.restored, 2); // without their sizes, which need not be right
            QVERIFY(desk.desktop.window(desk.plan).frame.origin() == (Point{50, 500}));
        }
    }

    void whatIsNotAttemptedIsSkippedWithAReason()
    {
        Desk desk;
        desk.rules.set({editorID, true, false});
        desk.desktop.close(desk.inbox);
        const QString clockID = QStringLiteral("org.example.clock");
        const WindowRecord gone{QStringLiteral("Clock"), clockID, {}, {}, {0, 0, 99, 99}, 3};
        desk.layout.windows.insert(desk.layout.windows.end(), 2, gone);
        const auto clock = desk.desktop.launch(clockID, {});
        desk.desktop.open(clock, {}, {0, 0, 99, 99});
        desk.desktop.window(desk.desktop.open(clock, {}, {9, 9, 99, 99})).isMinimized = true;

        const RestoreReport report = desk.engine.apply(desk.layout, true);
        QCOMPARE(report.summary(), QStringLiteral("1/5 restored, 0 failed, 4 skipped, 0.00s"));
        QCOMPARE(report.notes,
                 (QStringList{QStringLiteral("skipped: Editor, ignored by rule"),
                              QStringLiteral("skipped: Mail, app not running"),
                              QStringLiteral("skipped: Clock “”, window no longer exists")}));
    }

    void undoingTwiceRedoes()
    {
        Desk desk;
        QVERIFY(!desk.engine.undoLast(true));
        const auto scattered = desk.onScreen();
        desk.engine.apply(desk.layout, true);
        QCOMPARE(desk.engine.lastUndo()->name, QStringLiteral("Home"));
        QCOMPARE(desk.engine.undoLast(true)->restored, 3);
        QVERIFY(desk.onScreen() == scattered);
        QCOMPARE(desk.engine.undoLast(true)->restored, 3);
        QVERIFY(desk.onScreen() == desk.layout.windows);
    }
};

QTEST_GUILESS_MAIN(RestoreEngineTests)
#include "RestoreEngineTests.moc"
