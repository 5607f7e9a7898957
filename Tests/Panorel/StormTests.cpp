#include "Panorel/InMemoryProgram.h"
#include "Panorel/LearningWatch.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Records/ModelCoding.h"

#include <QTest>

#include <random>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

/// As in a file, which has no milliseconds.
template <typename File> QByteArray stored(const File &file)
{
    return PanorelJSON::encoder().encode(file);
}
QByteArray stored(const LayoutStore &store)
{
    return stored(LayoutFile{.activeLayouts = {}, .layouts = store.allLayouts()});
}
QByteArray stored(const SceneStore &store)
{
    return stored(SceneFile{.lastAppliedByConfig = {}, .scenes = store.allScenes()});
}

/// Anything at any moment, from a seed. After each step the promises are checked that hold
/// whatever happens.
class Storm {
public:
    explicit Storm(unsigned seed) : m_random(seed)
    {
        chooseTheSettleDelay();
        newLogLines();
    }

    /// The first promise that was broken, or nothing.
    QString run(int steps)
    {
        for (int step = 0; step < steps; ++step) {
            const std::size_t choice = below(happenings.size());
            const QByteArray before = m_program.dir.read(layoutsFile);
            const bool wasSettling = m_program.watcher->isSettling();
            const bool wasAway = isDeskAway();
            const auto &[name, isUsersWish, happen] = happenings[choice];
            m_trace << QString::fromUtf8(name);
            if (wasSettling)
                readLog(); // so that it tells of this step alone
            happen(*this);
            const bool isUntouched = m_program.dir.read(layoutsFile) == before;
            // The log is written on another thread: it is waited for only where it matters.
            QString broken;
            if (!isUntouched || wasAway || isUsersWish)
                broken = readLog(isUsersWish);
            if (broken.isEmpty() && !isUntouched && !isUsersWish)
                broken = brokenPromiseOfLearning(wasSettling, wasAway);
            if (m_trace.last() == QLatin1String("wake early"))
                m_returnUntil = {}; // that may have been it
            if (broken.isEmpty())
                broken = brokenPromise();
            if (!broken.isEmpty())
                return broken + QStringLiteral(", after: ") + m_trace.join(QStringLiteral(", "));
        }
        return {};
    }

private:
    struct Happening {
        const char *name;
        bool isUsersWish; ///< which may change what is remembered at any time
        std::function<void(Storm &)> happen;
    };
    static const std::vector<Happening> happenings;
    static inline const QString layoutsFile = QStringLiteral("layouts.json");

    std::size_t below(std::size_t end) { return m_random() % end; }
    bool isLucky() { return below(2) == 0; }
    double upTo(int end) { return double(below(std::size_t(end))); }
    AppController &controller() { return *m_program.controller; }
    InMemoryDesktop &desktop() { return m_program.desktop; }
    InMemoryScreens &screens() { return m_program.platform.display; }

    /// An application that was hidden with the desk still is, or the desk is on its way back.
    bool isDeskAway()
    {
        // One that the user has brought back is the stash's no more, whoever hides it again.
        const auto hidden = hiddenApplications();
        std::erase_if(m_stashed, [&](ProcessIdentifier pid) { return !hidden.contains(pid); });
        return m_program.dir.clock.now() < m_returnUntil
               || (m_program.panel.isStashed() && !m_stashed.empty());
    }
    std::set<ProcessIdentifier> hiddenApplications()
    {
        std::set<ProcessIdentifier> hidden;
        for (const RunningApplication &each : desktop().runningApplications()) {
            if (each.isHidden)
                hidden.insert(each.pid);
        }
        return hidden;
    }

    /// Without their time stamps.
    QStringList newLogLines()
    {
        m_program.dir.log.flush();
        const QByteArray log = m_program.dir.read(QStringLiteral("app.log"));
        QStringList lines;
        for (const QByteArray &line : log.mid(std::exchange(m_logRead, log.size())).split('\n'))
            lines << QString::fromUtf8(line.mid(line.indexOf(' ') + 1));
        return lines;
    }

    QString readLog(bool mayBeUsersWish = true)
    {
        const QString broken = m_watch.read(newLogLines(), mayBeUsersWish);
        if (m_watch.hasRestored())
            m_returnUntil = {}; // the restore came instead of the rest of the return
        return broken;
    }

    /// A layout was overwritten in this step, and not by the user.
    QString brokenPromiseOfLearning(bool wasSettling, bool wasAway)
    {
        const DisplayWatcher &watcher = *m_program.watcher;
        // A settle that is over by now may have restored, and learned what it restored; another one
        // may have begun since.
        if (wasSettling && watcher.isSettling() && m_watch.hasLearnedBeforeSettled())
            return QStringLiteral("a layout was overwritten while the displays settled");
        if (wasAway && isDeskAway())
            return QStringLiteral("a layout was overwritten while the desk was away");
        const auto displays = watcher.currentDisplays();
        if (m_watch.hasLearnedLast() && !watcher.isSettling()
            && (displays.empty() || displays != watcher.displays()))
            return QStringLiteral("a desk was learned whose displays are gone");
        return {};
    }

    QString brokenPromise()
    {
        TestDataDir &dir = m_program.dir;
        const LayoutStore layouts(dir.log, dir.clock);
        const bool isEmptyLearned = std::ranges::any_of(
            layouts.allLayouts(), [](const Layout &layout) { return layout.windows.empty(); });
        const std::pair<bool, const char *> promises[] = {
            {m_learnedInRestore, "a layout was overwritten in the middle of a restore"},
            {isEmptyLearned, "an empty desk was learned"},
            {stored(layouts) != stored(controller().layouts()),
             "the layouts in memory are not those on disk"},
            {stored(SceneStore(dir.log, dir.clock)) != stored(controller().scenes()),
             "the scenes in memory are not those on disk"},
            {TriggerStore(dir.log, dir.clock).all() != controller().triggers().all(),
             "the triggers in memory are not those on disk"},
            {stored(UsageStore(dir.log, dir.clock).data()) != stored(controller().usage().data()),
             "the usage in memory is not that on disk"}};
        const auto broken =
            std::ranges::find(promises, true, &std::pair<bool, const char *>::first);
        return broken == std::end(promises) ? QString() : QString::fromLatin1(broken->second);
    }

    InMemoryWindow *anyWindow()
    {
        const auto &windows = desktop().allWindows();
        if (windows.empty())
            return nullptr;
        return &desktop().window(
            std::next(windows.begin(), std::ptrdiff_t(below(windows.size())))->number);
    }
    std::optional<QUuid> anyScene()
    {
        const auto &scenes = controller().scenes().allScenes();
        return scenes.empty() ? std::nullopt : std::optional(scenes[below(scenes.size())].id);
    }

    // Displays.
    void plugOrUnplug()
    {
        const QString name = QStringLiteral("Monitor %1").arg(below(2));
        const auto count = screens().displays.size();
        screens().unplug(name);
        if (screens().displays.size() == count)
            screens().plug(name, {3360, upTo(500), 1280, 1024}, std::uint32_t(below(3)));
        announce();
    }
    void undock()
    {
        const auto count = screens().displays.size();
        screens().unplug(QStringLiteral("Dock"));
        if (screens().displays.size() == count)
            m_program.plugDock();
        announce();
    }
    void loseAll()
    {
        const bool hadAny = !screens().displays.empty();
        screens().displays.clear();
        if (!hadAny || isLucky())
            screens().plug(QStringLiteral("Built-in"), {0, 0, 1440, 900}, 0);
        announce();
    }
    void announce()
    {
        if (below(4) > 0) // otherwise the event is late
            screens().announceChange();
    }
    void changeWithinTheNextReading()
    {
        desktop().duringReading = [this] {
            desktop().duringReading = {};
            undock();
        };
    }

    /// In the middle of a restore; a timer that comes due there is a trap, too.
    void changeWithinTheNextMove()
    {
        desktop().duringMove = [this] {
            desktop().duringMove = {};
            const QByteArray before = m_program.dir.read(layoutsFile);
            isLucky() ? undock() : wakeEarly();
            m_returnUntil = {};
            // Windows are moved for other reasons, too.
            const bool isRestoring = m_trace.last() == QLatin1String("restore")
                                     || m_trace.last() == QLatin1String("undo");
            m_learnedInRestore |= isRestoring && m_program.dir.read(layoutsFile) != before;
        };
    }

    // Windows and applications.
    void openWindow()
    {
        const auto &applications = desktop().applications();
        if (!applications.empty())
            desktop().open(applications[below(applications.size())].pid,
                           QStringLiteral("Window %1").arg(below(5)),
                           {upTo(3000), upTo(900), 200 + upTo(900), 150 + upTo(700)});
    }
    void closeWindow()
    {
        if (const InMemoryWindow *window = anyWindow())
            desktop().close(window->number);
    }
    void changeWindow()
    {
        InMemoryWindow *window = anyWindow();
        if (!window)
            return;
        window->frame.x = upTo(3000);
        window->frame.width = 100 + upTo(1000);
        if (isLucky())
            window->title = QStringLiteral("Window %1").arg(below(5));
        window->isFullScreen = below(8) == 0;
    }
    void makeWindowMisbehave()
    {
        InMemoryWindow *window = anyWindow();
        if (!window)
            return;
        window->vanishesWhenMoved = below(4) == 0;
        window->refusesMoves = below(4) == 0;
        window->losesSizeWhenMoved = below(4) == 0;
        window->landsOff = {upTo(20), 0};
    }
    void minimize()
    {
        if (const InMemoryWindow *window = anyWindow())
            isLucky() ? desktop().minimize(window->number) : desktop().activate(window->number);
    }
    void launch()
    {
        const QString name = QStringLiteral("app%1").arg(below(4));
        desktop().launch(name, name);
    }
    void quit()
    {
        const auto &applications = desktop().applications();
        if (!applications.empty())
            desktop().quit(applications[below(applications.size())].pid);
    }

    // Time.
    void waitShortly() { m_program.scheduler.advance(std::chrono::milliseconds(below(500))); }
    void sleep()
    {
        m_program.dir.clock.advance(std::chrono::minutes(below(600)));
        m_program.scheduler.advance(1ms);
    }
    void setTheClockBack()
    {
        m_program.dir.clock.advance(-std::chrono::minutes(below(60)));
        m_program.scheduler.advance(1ms);
    }
    void wakeEarly() { m_program.scheduler.runNextEarly(); }

    // The user.
    void stash()
    {
        const auto before = hiddenApplications();
        controller().toggleStash();
        const bool isStashed = m_program.panel.isStashed();
        m_returnUntil = isStashed ? Instant() : m_program.dir.clock.now() + 400ms;
        m_stashed.clear();
        if (isStashed)
            std::ranges::set_difference(hiddenApplications(), before,
                                        std::inserter(m_stashed, m_stashed.end()));
    }
    void stashAndReturn()
    {
        stash();
        waitShortly();
        stash();
    }
    void applyScene() { controller().applyScene(anyScene().value_or(QUuid::createUuid())); }
    void changeScene()
    {
        const auto id = anyScene();
        if (!id)
            return;
        SceneRecord scene = *controller().scenes().scene(*id);
        scene.opensMissingApps = isLucky();
        scene.hidesOtherApps = isLucky();
        scene.hotKey = HotKeyCombo{quint32(below(4)), HotKeyCombo::control};
        below(4) == 0 ? controller().scenes().remove(*id) : controller().scenes().update(scene);
        controller().reloadHotKeys();
    }
    void pressKey() { m_program.platform.keys.press({quint32(below(4)), HotKeyCombo::control}); }
    void addTrigger()
    {
        TriggerRecord trigger{QUuid::createUuid(), anyScene().value_or(QUuid()), {}, true};
        if (isLucky())
            trigger.kind.payload = TimeTrigger{qint64(below(24)), qint64(below(60)), {}};
        else
            trigger.kind.payload = CalendarVideoTrigger{qint64(below(60))};
        controller().triggers().add(trigger);
        controller().timeTriggers().reload();
        m_program.platform.events.all = {{QString::number(below(100)),
                                          QStringLiteral("Meeting"),
                                          {},
                                          {},
                                          QStringLiteral("https://meet.google.com/a"),
                                          m_program.dir.clock.now() + 20min}};
    }
    void forget() { controller().forgetDesk(m_program.watcher->configID()); }
    void changePreferences()
    {
        m_program.prefs->setEnabled(below(4) > 0);
        m_program.prefs->setRestoreAutomatically(isLucky());
        m_program.prefs->setHideOthersOnSwitch(isLucky());
        m_program.prefs->setPlaceNewApps(isLucky());
    }
    void endTheSession()
    {
        readLog();
        controller().prepareToEnd();
        m_watch.sessionEnds();
    }
    void startAnew()
    {
        m_program.start();
        readLog();
        m_watch.programStarts();
        m_stashed.clear();
        m_returnUntil = {};
        chooseTheSettleDelay();
    }
    /// A long one has learning come due before it is over.
    void chooseTheSettleDelay()
    {
        m_settleDelay = isLucky() ? 1500ms : 120s;
        m_program.watcher->setSettleSeconds(double(m_settleDelay.count()) / 1000);
    }

    std::mt19937 m_random;
    Program m_program;
    LearningWatch m_watch;
    qsizetype m_logRead = 0;
    std::set<ProcessIdentifier> m_stashed; ///< hidden with the desk
    Instant m_returnUntil;
    bool m_learnedInRestore = false;
    std::chrono::milliseconds m_settleDelay{};
    QStringList m_trace;
};

const std::vector<Storm::Happening> Storm::happenings = {
    {"plug or unplug", false, &Storm::plugOrUnplug},
    {"undock or dock", false, &Storm::undock},
    {"lose all displays", false, &Storm::loseAll},
    {"change within the next reading", false, &Storm::changeWithinTheNextReading},
    {"change within the next move", false, &Storm::changeWithinTheNextMove},
    {"open a window", false, &Storm::openWindow},
    {"close a window", false, &Storm::closeWindow},
    {"change a window", false, &Storm::changeWindow},
    {"make a window misbehave", false, &Storm::makeWindowMisbehave},
    {"minimise or activate", false, &Storm::minimize},
    {"launch", false, &Storm::launch},
    {"quit", false, &Storm::quit},
    {"change the permission", false,
     [](Storm &storm) { storm.desktop().trusted = storm.below(4) > 0; }},
    {"blank the window list", false,
     [](Storm &storm) { storm.desktop().listReadable = storm.below(4) > 0; }},
    {"wait shortly", false, &Storm::waitShortly},
    {"wait for the settle", false,
     [](Storm &storm) { storm.m_program.scheduler.advance(storm.m_settleDelay); }},
    {"wait for the next learning", false,
     [](Storm &storm) { storm.m_program.scheduler.advance(90s); }},
    {"sleep", false, &Storm::sleep},
    {"set the clock back", false, &Storm::setTheClockBack},
    {"wake early", false, &Storm::wakeEarly},
    {"restore", false, [](Storm &storm) { storm.controller().restoreNow(); }},
    {"undo", false, [](Storm &storm) { storm.controller().undoLastRestore(); }},
    {"save", true, [](Storm &storm) { storm.controller().saveLayoutNow(); }},
    {"stash", false, &Storm::stash},
    {"stash and return", false, &Storm::stashAndReturn},
    {"save a scene", false, [](Storm &storm) { storm.controller().saveCurrentAsScene(); }},
    {"apply a scene", false, &Storm::applyScene},
    {"change a scene", false, &Storm::changeScene},
    {"press a key", false, &Storm::pressKey},
    {"add a trigger", false, &Storm::addTrigger},
    {"forget the desk", true, &Storm::forget},
    {"change preferences", false, &Storm::changePreferences},
    {"end the session", false, &Storm::endTheSession},
    {"start anew", true, &Storm::startAnew},
};

} // namespace

/// What protects the user's windows holds in whatever order things happen. PANOREL_STORMS says
/// how many storms there are, PANOREL_STORM_SEED which is the first.
class StormTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noOrderOfEventsBreaksAPromise()
    {
        const int storms = qEnvironmentVariable("PANOREL_STORMS", QStringLiteral("100")).toInt();
        const unsigned first = qEnvironmentVariable("PANOREL_STORM_SEED").toUInt();
        for (unsigned seed = first; seed < first + unsigned(storms); ++seed) {
            const QString broken = Storm(seed).run(60);
            QVERIFY2(broken.isEmpty(),
                     qPrintable(QStringLiteral("seed %1: %2").arg(seed).arg(broken)));
        }
    }
};

QTEST_GUILESS_MAIN(StormTests)
#include "StormTests.moc"
