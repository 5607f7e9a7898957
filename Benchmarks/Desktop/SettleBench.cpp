#include "Desktop/BenchDesk.h"
#include "Desktop/Results.h"
#include "Desktop/Support/TestProgram.h"

#include <thread>

namespace Panorel::Bench {

namespace {

constexpr double settleDelay = 1500; // ms, the program's own default

class SettleBench {
public:
    SettleBench(Results &results, const QString &manager, int count)
        : m_results(results), m_manager(manager), m_count(count), m_desk(manager, count)
    {
        Desktop::require([this] { return learnedWindows() == m_count; }, "a learned desk");
    }

    void run(int rounds)
    {
        for (int round = -1; round < rounds; ++round) { // the first one warms up
            unplug();
            m_desk.scatter(round, 1920);
            m_desk.raw.forgetDisplayChange();
            // On a thread of its own, so that the time of an event is that of its arrival.
            std::jthread plugging([this] { m_desk.session.server.plug(Desktop::sideBySide()); });
            const auto placed = m_desk.raw.awaitFrames(m_desk.places(), RawDesktop::Begin::WithAll);
            const auto stacked = m_desk.raw.awaitStacking(m_desk.bottomToTop());
            const auto changed = m_desk.raw.lastDisplayChange();
            if (!placed || !stacked || !changed)
                qFatal("%s: the program does not restore the desk", qPrintable(m_manager));
            if (round >= 0) {
                add("frames ms", BenchDesk::milliseconds(*changed, *placed) - settleDelay);
                add("all ms", BenchDesk::milliseconds(*changed, *stacked) - settleDelay);
            }
        }
    }

private:
    int learnedWindows() const
    {
        const QJsonArray layouts = m_program.layouts().value(QStringLiteral("layouts")).toArray();
        return layouts.isEmpty() ? 0 : int(layouts[0][QStringLiteral("windows")].toArray().size());
    }

    void unplug()
    {
        const auto settled = m_program.logged("display settled");
        m_desk.session.server.plug({Desktop::Plugged{}});
        m_program.awaitLogged(settled + 1, "display settled");
    }

    void add(const char *measure, double value)
    {
        m_results.add({QStringLiteral("settle"), m_manager, m_count, QStringLiteral("panorel"),
                       QLatin1String(measure)},
                      value);
    }

    Results &m_results;
    QString m_manager;
    int m_count;
    BenchDesk m_desk;
    Desktop::TestProgram m_program;
};

} // namespace

void measureSettle(Results &results, const Selection &selection)
{
    selection.forEachDesk("settle", [&](const QString &manager, int windows) {
        SettleBench(results, manager, windows).run(selection.rounds);
    });
}

} // namespace Panorel::Bench
