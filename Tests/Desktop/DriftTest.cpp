#include "Desktop/Support/DesktopSession.h"

#include <QElapsedTimer>
#include <QTest>

#include <random>

using namespace Panorel;
using namespace Panorel::Desktop;

/// Windows of every kind that are thrown about, put back and learned, again and again.
class DriftTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { forEachChosenManager(); }
    void roundTripsLoseNoPixel();
};

void DriftTest::roundTripsLoseNoPixel()
{
    const uint seed = qEnvironmentVariableIntValue("PANOREL_TEST_SEED");
    const int rounds = cyclesOfThisRun();
    qInfo("%d rounds, PANOREL_TEST_SEED=%u", rounds, seed);
    std::mt19937 random(seed);

    EngineSession session(managerOfThisRun());
    session.openEveryKind();
    session.activateAndWait(session.clients.front());
    const QStringList before = session.frames();
    const std::vector<xcb_window_t> order = session.probe.stacking();
    const Layout learned = session.capture();
    QCOMPARE(learned.windows.size(), session.clients.size());
    for (const WindowRecord &record : learned.windows)
        QVERIFY(before.contains(described(record.title, record.frame)));

    for (int round = 1; round <= rounds; ++round) {
        session.scatter(random, 6); // neither the dialog nor the fixed aspect
        TestClient &focused = *std::next(session.clients.begin(), random() % 8);
        session.activateAndWait(focused);

        QElapsedTimer time;
        time.start();
        const RestoreReport report = session.restore(learned);
        QVERIFY2(report.restored == 8 && report.failed == 0,
                 qPrintable(QStringLiteral("round %1, %2 ms: %3")
                                .arg(round)
                                .arg(time.elapsed())
                                .arg(report.notes.join(u' '))));
        // A shadow may still grow, and its window be put back, once the event loop runs.
        QTRY_COMPARE(session.frames(), before);
        QTRY_COMPARE(session.probe.stacking(), order);
        QCOMPARE(session.probe.activeWindow(), std::optional(focused.window()));
        QTRY_VERIFY(session.capture().windows == learned.windows);
        if (round % 100 == 0)
            qInfo("%d rounds", round);
    }
}

QTEST_GUILESS_MAIN(DriftTest)
#include "DriftTest.moc"
