#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "Support/TestDataDir.h"

#include <QElapsedTimer>
#include <QTest>

#include <random>
#include <thread>

using namespace Panorel;

namespace {

const QString desk = QStringLiteral("desk");
const QStringList storeFiles{QStringLiteral("layouts.json"), QStringLiteral("placements.json"),
                             QStringLiteral("usage.json")};

std::vector<WindowRecord> manyWindows(qint64 number)
{
    WindowRecord window;
    window.bundleID = QStringLiteral("org.example.editor");
    window.title = QString::number(number);
    return std::vector<WindowRecord>(300, window);
}

/// What they were all saved with; absent where they are not of one save.
std::optional<qint64> numberOf(const std::vector<WindowRecord> &windows)
{
    if (windows.empty())
        return 0;
    const qint64 number = windows.front().title.toLongLong();
    return windows == manyWindows(number) ? std::optional(number) : std::nullopt;
}

/// Large files and a small one; the other stores are written in the same way. Each one's content is
/// a number, how often it was saved.
struct Stores {
    Stores(AppLog &log, const Clock &clock)
        : layouts(log, clock), placements(log, clock), usage(log, clock)
    {}

    std::vector<std::optional<qint64>> numbers() const
    {
        const Layout *layout = layouts.layoutFor(desk);
        return {layout ? numberOf(layout->windows) : 0,
                numberOf(placements.windows(desk, QStringLiteral("org.example.editor"))),
                usage.data().restores};
    }
    void save(std::size_t store, qint64 number)
    {
        const std::vector<WindowRecord> windows = manyWindows(number);
        if (store == 0)
            layouts.saveLearned({desk, desk, desk, {}, {}, windows});
        else if (store == 1)
            placements.remember(desk, windows);
        else
            usage.record(UsageEvents::Restore{1});
    }

    LayoutStore layouts;
    PlacementMemory placements;
    UsageStore usage;
};

/// Goes on where the files end, beginning with that store, and prints "STORE NUMBER" after each
/// save: for ever, or once round.
int saveStores(std::size_t first, bool forEver)
{
    const SystemClock clock;
    AppLog log(clock);
    Stores stores(log, clock);
    do {
        const auto numbers = stores.numbers();
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const std::size_t store = (first + i) % numbers.size();
            stores.save(store, *numbers[store] + 1);
            std::printf("%zu %lld\n", store, static_cast<long long>(*numbers[store] + 1));
            std::fflush(stdout);
        }
    } while (forEver);
    return 0;
}

/// From the environment, so that a failure can be had again.
unsigned randomSeed()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("PANOREL_KILLS_SEED", &isGiven);
    return isGiven ? unsigned(given) : std::random_device()();
}

} // namespace

/// The program is killed while it saves, again and again.
class KillTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatWasSavedBeforeAKillIsThere()
    {
        const unsigned seed = randomSeed();
        qInfo("PANOREL_KILLS_SEED=%u", seed);
        std::mt19937 random(seed);
        const int wanted = qEnvironmentVariableIntValue("PANOREL_KILLS");
        TestDataDir dir;
        std::vector<std::optional<qint64>> saved(std::size_t(storeFiles.size()), 0);
        QElapsedTimer sinceStart;
        sinceStart.start();
        int kills = 0;
        while (wanted > 0 ? kills < wanted : sinceStart.elapsed() < 5'000) {
            const auto child = dir.again(
                {QStringLiteral("--save-for-ever"), QString::number(random() % storeFiles.size())});
            QVERIFY(child->waitForReadyRead());
            std::this_thread::sleep_for(std::chrono::microseconds(random() % 50'000));
            child->kill();
            QVERIFY(child->waitForFinished());
            ++kills;
            for (const QByteArray &line : child->readAllStandardOutput().trimmed().split('\n'))
                saved[line.split(' ').at(0).toUInt()] = line.split(' ').at(1).toLongLong();

            const auto found = Stores(dir.log, dir.clock).numbers();
            for (std::size_t store = 0; store < saved.size(); ++store) {
                // At most the one save that it could not report any more.
                const qint64 more = found[store].value_or(-1) - *saved[store];
                QVERIFY2(more == 0 || more == 1, qPrintable(storeFiles[qsizetype(store)]));
            }
            saved = found;
            QVERIFY2(leftovers(dir).size() <= storeFiles.size(),
                     qPrintable(dir.names().join(u' ')));
        }
        const auto child = dir.again({QStringLiteral("--save")});
        QVERIFY(child->waitForFinished());
        QCOMPARE(leftovers(dir), QStringList());
        qInfo("%d kills, %lld saves of the layouts", kills, *saved[0]);
    }

private:
    static QStringList leftovers(const TestDataDir &dir)
    {
        QStringList names = dir.names();
        names.removeIf(
            [](const QString &name) { return name == u"app.log" || storeFiles.contains(name); });
        return names;
    }
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (const QString task = application.arguments().value(1);
        task.startsWith(QLatin1String("--save")))
        return saveStores(application.arguments().value(2).toUInt(), task == u"--save-for-ever");
    KillTests test;
    return QTest::qExec(&test, argc, argv);
}
#include "KillTests.moc"
