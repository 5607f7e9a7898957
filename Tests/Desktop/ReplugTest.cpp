#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"

#include <QTest>

#include <algorithm>
#include <csignal>
#include <random>
#include <thread>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

/// As on a machine that others keep busy.
void keepDrowsy(const std::stop_token &end, const TestWindowManager &manager)
{
    std::mt19937 random(1);
    while (!end.stop_requested()) {
        manager.stopUntil([&] { QTest::qSleep(int(1 + random() % 600)); }).join();
        QTest::qSleep(int(1 + random() % 40));
    }
}

} // namespace

/// The program itself, and a display that is pulled out and plugged in again and again; where
/// PANOREL_DROWSY is set, with a window manager that hardly gets to run.
class ReplugTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { forEachChosenManager(); }
    void everyReplugBringsTheWholeDeskBack();
};

void ReplugTest::everyReplugBringsTheWholeDeskBack()
{
    DesktopSession desk(managerOfThisRun());
    const DesktopProbe &probe = desk.probe;
    desk.server.setEdid(0, QStringLiteral("Left"), 11);
    desk.server.setEdid(1, QStringLiteral("Right"), 12);
    TestProgram::setSettleSeconds(0.5);
    desk.openEveryKind();
    const TestClient &big = desk.open(ClientKind::Plain, "big", {2300, 300, 500, 400});
    const TestClient &film = desk.open(ClientKind::Plain, "film", {900, 200, 600, 400});
    const TestClient &aside = desk.open(ClientKind::Plain, "aside", {300, 300, 500, 400});
    desk.setStateAndWait(big, true, vertically, horizontally);
    desk.setStateAndWait(film, true, fullScreen);
    desk.minimiseAndWait(aside);
    const TestClient &covered = *std::next(desk.clients.begin(), 6); // by the film
    const TestClient &focused = *std::next(desk.clients.begin(), 4);
    desk.probe.activate(focused.window()); // the film may stay above it
    require([&] { return probe.activeWindow() == focused.window(); }, "the focus");
    const QStringList before = desk.frames();
    const auto shownOrder = [&] {
        std::vector<xcb_window_t> windows = probe.stacking();
        std::erase(windows, aside.window()); // wherever a minimised window counts
        if (desk.manager->kind().raisesBesideFullScreen)
            std::erase(windows, film.window());
        return windows;
    };
    const std::vector<xcb_window_t> order = shownOrder();
    const auto isFilmAbove = [&] {
        const std::vector<xcb_window_t> all = probe.stacking();
        return std::ranges::find(all, film.window()) > std::ranges::find(all, covered.window());
    };
    const bool wasFilmAbove = isFilmAbove(); // icewm lowers it with the focus

    TestProgram program;
    program.awaitLogged(1, "learned layout: 9 windows"); // all but the film and what is aside
    std::jthread drowsiness;
    if (qEnvironmentVariableIsSet("PANOREL_DROWSY"))
        drowsiness = std::jthread(keepDrowsy, std::cref(*desk.manager));
    for (int cycle = 1; cycle <= cyclesOfThisRun(); ++cycle) {
        desk.server.plug({{.output = 0}});
        program.awaitLogged(cycle, "display settled: 1 displays");
        desk.frames(); // at rest
        const qsizetype logged = program.logSize();
        desk.server.plug(sideBySide());
        const QByteArray report = program.awaitRestore(logged, 2);
        QVERIFY2(report.contains("9/9 restored, 0 failed"), report);
        QTRY_COMPARE(desk.frames(), before); // a busy manager tells of a frame after moving it
        QTRY_COMPARE(shownOrder(), order);
        QCOMPARE(isFilmAbove(), wasFilmAbove);
        QCOMPARE(probe.activeWindow(), std::optional(focused.window()));
        QVERIFY(probe.hasState(big.window(), vertically));
        QVERIFY(probe.hasState(film.window(), fullScreen));
        QVERIFY(desk.isMinimised(aside));
        if (cycle % 10 == 0)
            qInfo("%d cycles", cycle);
    }
    drowsiness = {};
    program.endCleanly(SIGTERM);
}

QTEST_GUILESS_MAIN(ReplugTest)
#include "ReplugTest.moc"
