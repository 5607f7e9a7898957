#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelCore/Triggers/TriggerStore.h"
#include "Support/TestDataDir.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QTest>

#include <bit>
#include <random>
#include <thread>

using namespace Panorel;

namespace {

const QString desk = QStringLiteral("desk");
const QUuid onlyID = QUuid::createUuidV5(QUuid(), desk);
const QStringList storeFiles{QStringLiteral("layouts.json"),  QStringLiteral("placements.json"),
                             QStringLiteral("rules.json"),    QStringLiteral("scenes.json"),
                             QStringLiteral("triggers.json"), QStringLiteral("usage.json")};
constexpr int bits = 24;

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

/// All stores of the program, in the order of their files. Each one's content is a number, how
/// often it was saved.
struct Stores {
    explicit Stores(TestDataDir &dir) : Stores(dir.log, dir.clock) {}
    Stores(AppLog &log, const Clock &clock)
        : layouts(log, clock), placements(log, clock), rules(log, clock), scenes(log, clock),
          triggers(log, clock), usage(log, clock)
    {}

    std::vector<std::optional<qint64>> numbers() const
    {
        const Layout *layout = layouts.layoutFor(desk);
        const SceneRecord *scene = scenes.scene(onlyID);
        qint64 ruled = 0; // the rules are the digits of a Gray code: each number differs in one
        for (int bit = bits - 1, digit = 0; bit >= 0; --bit) {
            digit ^= rules.rule(QString::number(bit)).ignored;
            ruled = ruled * 2 + digit;
        }
        return {layout ? numberOf(layout->windows) : 0,
                numberOf(placements.windows(desk, QStringLiteral("org.example.editor"))),
                ruled,
                scene ? numberOf(scene->layout.windows) : 0,
                triggers.all().empty() ? 0 : triggers.all()[0].kind.calendarVideo()->leadMinutes,
                usage.data().restores};
    }
    void save(std::size_t store, qint64 number)
    {
        Layout layout{desk, desk, desk, {}, {}, manyWindows(number)};
        switch (store) {
        case 0:
            return layouts.saveLearned(layout);
        case 1:
            return placements.remember(desk, layout.windows);
        case 2: {
            const QString digit = QString::number(std::countr_zero(quint64(number)));
            return rules.set({digit, !rules.rule(digit).ignored, false});
        }
        case 3: {
            const SceneRecord scene{onlyID, desk, desk, {}, false, false, {}, {}, layout};
            return scenes.scene(onlyID) ? scenes.update(scene) : scenes.add(scene);
        }
        case 4: {
            const TriggerRecord trigger{onlyID, onlyID, {CalendarVideoTrigger{number}}, true};
            return triggers.all().empty() ? triggers.add(trigger) : triggers.update(trigger);
        }
        default:
            usage.record(UsageEvents::Restore{1});
        }
    }

    LayoutStore layouts;
    PlacementMemory placements;
    AppRuleStore rules;
    SceneStore scenes;
    TriggerStore triggers;
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
        std::mt19937 random(seed);
        const int wanted = qEnvironmentVariableIntValue("PANOREL_KILLS");
        TestDataDir dir;
        std::vector<std::optional<qint64>> saved(std::size_t(storeFiles.size()), 0);
        qsizetype mostLeftovers = 0;
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

            const auto found = Stores(dir).numbers();
            for (std::size_t store = 0; store < saved.size(); ++store) {
                const auto context = QStringLiteral("%1 after kill %2 of seed %3: %4 was saved")
                                         .arg(storeFiles[qsizetype(store)])
                                         .arg(kills)
                                         .arg(seed)
                                         .arg(*saved[store]);
                QVERIFY2(found[store], qPrintable(context));
                // At most the one save that it could not report any more.
                QVERIFY2(*found[store] == *saved[store] || *found[store] == *saved[store] + 1,
                         qPrintable(context + QStringLiteral(", %1 found").arg(*found[store])));
            }
            saved = found;
            mostLeftovers = std::max(mostLeftovers, leftovers(dir).size());
            QVERIFY2(mostLeftovers <= storeFiles.size(), qPrintable(dir.names().join(u' ')));
        }
        const auto child = dir.again({QStringLiteral("--save")});
        QVERIFY(child->waitForFinished());
        QCOMPARE(leftovers(dir), QStringList());
        checkLog(dir.read(QStringLiteral("app.log")));
        qInfo("%d kills, seed %u, %lld saves of the layouts, at most %lld leftovers, %lld s", kills,
              seed, *saved[0], mostLeftovers, sinceStart.elapsed() / 1000);
    }

private:
    static QStringList leftovers(const TestDataDir &dir)
    {
        QStringList names = dir.names();
        names.removeIf(
            [](const QString &name) { return name == u"app.log" || storeFiles.contains(name); });
        return names;
    }
    /// The last lines of a life are lost, but none is mixed with another one.
    static void checkLog(const QByteArray &log)
    {
        static const QRegularExpression whole(QStringLiteral(
            R"(^\[\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ\] learned layout: 300 windows for desk \[desk\]$)"));
        QVERIFY(log.endsWith('\n'));
        const QList<QByteArray> lines = log.trimmed().split('\n');
        for (const QByteArray &line : lines) {
            const bool isCutOff = !line.endsWith("[desk]");
            QVERIFY2(whole.match(QString::fromUtf8(line)).hasMatch()
                         || (isCutOff && line.count("learned") <= 1),
                     line.constData());
        }
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
