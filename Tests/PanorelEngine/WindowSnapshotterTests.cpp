#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "Support/InMemoryDesktop.h"

#include <QTest>

using namespace Panorel;

namespace {

DisplayInfo displayAt(const QString &uuid, const Rect &frame)
{
    DisplayInfo display;
    display.uuid = uuid;
    display.frame = frame;
    return display;
}

} // namespace

class WindowSnapshotterTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_desktop = std::make_unique<InMemoryDesktop>();
        m_pid = m_desktop->launch(QStringLiteral("org.example.editor"), QStringLiteral("Editor"));
    }

    void onlyOrdinaryVisibleWindowsAreCaptured()
    {
        const auto row = [this](const char *name, bool captured, const auto &change) {
            const int number = m_desktop->open(m_pid, QStringLiteral("Notes"), {10, 10, 400, 300});
            change(m_desktop->window(number));
            QVERIFY2(snapshotter().snapshot({}).size() == (captured ? 1u : 0u), name);
            m_desktop->close(number);
        };
        row("an ordinary window", true, [](InMemoryWindow &) {});
        row("exactly 40 by 40", true, [](auto &window) { window.frame = {5, 5, 40, 40}; });
        row("39 wide", false, [](auto &window) { window.frame.width = 39; });
        row("39 high", false, [](auto &window) { window.frame.height = 39; });
        row("minimised", false, [](auto &window) { window.isMinimized = true; });
        row("full-screen", false, [](auto &window) { window.isFullScreen = true; });
        row("not on the screen", false, [](auto &window) { window.isOnScreen = false; });
        row("on another layer", false, [](auto &window) { window.layer = 25; });
        row("without a layer", false, [](auto &window) { window.layer.reset(); });
        row("invisible", false, [](auto &window) { window.alpha = 0; });
        row("without a title", true, [](auto &window) { window.title.reset(); });
        row("without a position", false, [](auto &window) { window.hidesPosition = true; });
        row("without a size", false, [](auto &window) { window.hidesSize = true; });
        row("bounds off by 3", true, [](auto &window) { window.boundsOff = {3, -3}; });
        row("bounds off by 3.5", false, [](auto &window) { window.boundsOff = {0, 3.5}; });
        row("of this very program", false,
            [](auto &window) { window.pid = InMemoryDesktop::ownPID; });
    }

    void onlyOrdinaryApplicationsAreCaptured()
    {
        const auto menu =
            m_desktop->launch(QStringLiteral("org.example.menu"), {}, ActivationPolicy::Accessory);
        const auto nameless = m_desktop->launch(QStringLiteral("org.example.nameless"), {});
        const auto unidentified = m_desktop->launch({}, QStringLiteral("Unidentified"));
        m_desktop->applications().back().bundleID.reset();
        for (const auto pid : {menu, nameless, unidentified})
            m_desktop->open(pid, QStringLiteral("A window"), {10, 10, 400, 300});

        const auto records = snapshotter().snapshot({});
        QCOMPARE(records.size(), 1u);
        QCOMPARE(records[0].appName, QStringLiteral("org.example.nameless"));
        QCOMPARE(snapshotter().liveWindows().size(), 1u);
    }

    void aWindowBelongsToTheDisplayItOverlapsMost()
    {
        const std::vector displays{displayAt(QStringLiteral("left"), {0, 0, 1000, 800}),
                                   displayAt(QStringLiteral("right"), {1000, 0, 1000, 800})};
        // Equal overlaps, and none at all, go to the first.
        const int number = m_desktop->open(m_pid, QStringLiteral("Notes"), {0, 10, 200, 300});
        for (const auto &[x, display] : {std::pair(850, 0), {951, 1}, {900, 0}, {9000, 0}}) {
            m_desktop->window(number).frame.x = x;
            QCOMPARE(snapshotter().snapshot(displays).at(0).displayUUID,
                     displays.at(size_t(display)).uuid);
        }
        QCOMPARE(snapshotter().snapshot({}).at(0).displayUUID, QString());
    }

    void stackingIsSavedAsDenseRanks()
    {
        const auto mail = m_desktop->launch(QStringLiteral("org.example.mail"), {});
        for (const auto &[pid, width] :
             {std::pair(m_pid, 400), {mail, 30}, {mail, 410}, {m_pid, 420}})
            m_desktop->open(pid, {}, {0, 0, double(width), 300});
        std::vector<std::pair<qint64, double>> ranks;
        for (const WindowRecord &record : snapshotter().snapshot({}))
            ranks.emplace_back(record.zOrder, record.frame.width);
        QVERIFY(ranks == (std::vector<std::pair<qint64, double>>{{0, 420}, {1, 410}, {2, 400}}));
    }

    void liveWindowsAreAllButTheMinimised()
    {
        const auto mail = m_desktop->launch(QStringLiteral("org.example.mail"), {});
        m_desktop->open(mail, QStringLiteral("Inbox"), {0, 0, 400, 300});
        m_desktop->open(m_pid, QStringLiteral("small"), {0, 0, 20, 20});
        const int full = m_desktop->open(m_pid, QStringLiteral("full"), {0, 0, 400, 300});
        m_desktop->window(full).isFullScreen = true;
        const int minimised = m_desktop->open(m_pid, QStringLiteral("away"), {0, 0, 400, 300});
        m_desktop->window(minimised).isMinimized = true;

        const auto all = snapshotter().liveWindows();
        QCOMPARE(all.size(), 3u);
        for (std::size_t i = 0; i < all.size(); ++i)
            QCOMPARE(all[i].live.id, qint64(i));
        QCOMPARE(all[0].live.title, QStringLiteral("full"));
        const std::set<QString> onlyMail{QStringLiteral("org.example.mail")};
        QCOMPARE(snapshotter().liveWindows(onlyMail).size(), 1u);
        QCOMPARE(snapshotter().liveWindows(std::set<QString>{}).size(), 0u);
    }

    void withoutPermissionOrListNothingIsSeen()
    {
        m_desktop->open(m_pid, QStringLiteral("Notes"), {0, 0, 400, 300});
        m_desktop->listReadable = false;
        QVERIFY(snapshotter().snapshot({}).empty());
        m_desktop->listReadable = true;
        m_desktop->trusted = false;
        QVERIFY(snapshotter().snapshot({}).empty());
        QVERIFY(snapshotter().liveWindows().empty());
    }

private:
    WindowSnapshotter snapshotter() { return {*m_desktop, *m_desktop, *m_desktop}; }

    std::unique_ptr<InMemoryDesktop> m_desktop;
    ProcessIdentifier m_pid = 0;
};

QTEST_GUILESS_MAIN(WindowSnapshotterTests)
#include "WindowSnapshotterTests.moc"
