// panorel-bench-drift [--cycles N] [--json FILE] [MANAGER...]: how far windows of each kind are
// from where they were, each time they have been saved, thrown about and put back; by Panorel and
// by scripts around wmctrl and xdotool. A table in Markdown on standard output, everything as JSON
// in the file. By default ten cycles under every window manager that is installed.

#include "Keepers.h"

#include "Support/TestHome.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <cstdio>

namespace Panorel::Desktop {
namespace {

const QStringList keepers{QStringLiteral("panorel"), QStringLiteral("wmctrl"),
                          QStringLiteral("xdotool")};

/// Of one window over all cycles: the furthest that one of its sides, x, y, width and height, was
/// off after a cycle, in px.
struct Drift {
    double sum = 0;
    double worst = 0;
};

double distance(const Rect &a, const Rect &b)
{
    return std::max({std::abs(a.x - b.x), std::abs(a.y - b.y), std::abs(a.width - b.width),
                     std::abs(a.height - b.height)});
}

/// By title. What a cycle left is what the next one saves, so that a creep goes on.
std::map<QString, Drift> measure(const QString &manager, const QString &keeperName, int cycles)
{
    EngineSession session(manager);
    session.openEveryKind();
    std::vector<xcb_window_t> windows;
    for (const TestClient &client : session.clients)
        windows.push_back(client.window());
    const auto keeper = makeKeeper(keeperName, session);
    std::mt19937 random(1);
    std::map<QString, Drift> drifts;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        const std::vector<Rect> before = session.probe.restingFrames(windows);
        keeper->save();
        session.scatter(random, 0);
        keeper->restore();
        std::vector<Rect> after;
        // Twice the same: the second look is for a window manager that had not begun at the first.
        for (std::vector<Rect> last{Rect{}}; last != after;) {
            last = after;
            after = session.probe.restingFrames(windows);
        }
        for (std::size_t i = 0; i < windows.size(); ++i) {
            const double off = distance(before[i], after[i]);
            Drift &drift = drifts[session.probe.title(windows[i]).trimmed()];
            drift.sum += off;
            drift.worst = std::max(drift.worst, off);
        }
    }
    return drifts;
}

QStringList installedManagers()
{
    QStringList names;
    for (const ManagerKind &kind : knownManagers()) {
        if (!QStandardPaths::findExecutable(QLatin1String(kind.name)).isEmpty())
            names << QLatin1String(kind.name);
    }
    return names;
}

/// Keeper, manager and title to the mean drift in px per cycle.
using Means = std::map<std::tuple<QString, QString, QString>, double>;

void printTable(const Means &means, const QString &keeper, const QStringList &managers)
{
    std::set<QString> titles;
    for (const auto &[key, mean] : means)
        titles.insert(std::get<2>(key));
    std::printf("\n| %s, px per cycle | %s |\n|---|%s\n", qPrintable(keeper),
                qPrintable(managers.join(QStringLiteral(" | "))),
                qPrintable(QStringLiteral("---|").repeated(managers.size())));
    for (const QString &title : titles) {
        std::printf("| %s |", qPrintable(title));
        for (const QString &manager : managers)
            std::printf(" %.3g |", means.at({keeper, manager, title}));
        std::printf("\n");
    }
}

} // namespace
} // namespace Panorel::Desktop

int main(int argc, char **argv)
{
    using namespace Panorel::Desktop;
    const QCoreApplication application(argc, argv);
    QCommandLineParser options;
    options.addOptions({{QStringLiteral("cycles"), {}, QStringLiteral("N"), QStringLiteral("10")},
                        {QStringLiteral("json"), {}, QStringLiteral("file")}});
    options.addPositionalArgument(QStringLiteral("manager"), {});
    options.process(application);
    const int cycles = options.value(QStringLiteral("cycles")).toInt();
    const QStringList named = options.positionalArguments();
    const QStringList managers = named.isEmpty() ? installedManagers() : named;

    Means means;
    QJsonArray rows;
    for (const QString &manager : managers) {
        for (const QString &keeper : keepers) {
            for (const auto &[title, drift] : measure(manager, keeper, cycles)) {
                means[{keeper, manager, title}] = drift.sum / cycles;
                rows.append(QJsonObject{{QStringLiteral("manager"), manager},
                                        {QStringLiteral("keeper"), keeper},
                                        {QStringLiteral("window"), title},
                                        {QStringLiteral("meanPx"), drift.sum / cycles},
                                        {QStringLiteral("worstPx"), drift.worst}});
            }
        }
        std::fprintf(stderr, "%s measured\n", qPrintable(manager));
    }
    for (const QString &keeper : keepers)
        printTable(means, keeper, managers);

    const QString path = options.value(QStringLiteral("json"));
    const QJsonObject result{{QStringLiteral("cycles"), cycles}, {QStringLiteral("drift"), rows}};
    if (!path.isEmpty())
        Panorel::writeFile(path, QJsonDocument(result).toJson());
    return 0;
}
