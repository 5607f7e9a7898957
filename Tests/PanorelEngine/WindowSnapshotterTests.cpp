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

    void onlyOrdinaryVisibleWindowsAreCaptured_data()
    {
        using Change = std::function<void(InMemoryWindow &)>;
        QTest::addColumn<Change>("change");
        QTest::addColumn<bool>("captured");
        const auto row = [](const char *name, bool captured, const Change &change) {
            QTest::newRow(name) << change << captured;
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
        row("barely visible", true, [](auto &window) { window.alpha = 0.01; });
        row("without a title", true, [](auto &window) { window.title.reset(); });
        row("without a position", false, [](auto &window) { window.hidesPosition = true; });
        row("without a size", false, [](auto &window) { window.hidesSize = true; });
        row("bounds off by 3", true, [](auto &window) { window.boundsOff = {3, -3}; });
        row("bounds off by 3.5", false, [](auto &window) { window.boundsOff = {0, 3.5}; });
        row("of this very program", false,
            [](auto &window) { window.pid = InMemoryDesktop::ownPID; });
        row("of no known application", false, [](auto &window) { window.pid = 4711; });
    }

    void onlyOrdinaryVisibleWindowsAreCaptured()
    {
        QFETCH(std::function<void(InMemoryWindow &)>, change);
        QFETCH(bool, captured);
        const int number = m_desktop->open(m_pid, QStringLiteral("Notes"), {10, 10, 400, 300});
        change(m_desktop->window(number));
        QCOMPARE(snapshotter().snapshot({}).size(), captured ? 1u : 0u);
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

    void aWindowBelongsToTheDisplayItOverlapsMost_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<QString>("uuid");
        QTest::newRow("mostly left") << 850.0 << "left";
        QTest::newRow("mostly right") << 951.0 << "right";
        QTest::newRow("equal overlaps go to the first") << 900.0 << "left";
        QTest::newRow("off all displays goes to the first") << 9000.0 << "left";
    }

    void aWindowBelongsToTheDisplayItOverlapsMost()
    {
        QFETCH(double, x);
        QFETCH(QString, uuid);
        m_desktop->open(m_pid, QStringLiteral("Notes"), {x, 10, 200, 300});
        const auto records =
            snapshotter().snapshot({displayAt(QStringLiteral("left"), {0, 0, 1000, 800}),
                                    displayAt(QStringLiteral("right"), {1000, 0, 1000, 800})});
        QCOMPARE(records.at(0).displayUUID, uuid);
        QCOMPARE(snapshotter().snapshot({}).at(0).displayUUID, QString());
    }

    void stackingIsSavedAsDenseRanks()
    {
        const auto mail = m_desktop->launch(QStringLiteral("org.example.mail"), {});
        m_desktop->open(m_pid, QStringLiteral("back"), {0, 0, 400, 300});
        m_desktop->open(mail, QStringLiteral("dropped"), {20, 0, 30, 30});
        m_desktop->open(mail, QStringLiteral("middle"), {40, 0, 400, 300});
        m_desktop->open(m_pid, QStringLiteral("front"), {80, 0, 400, 300});

        QStringList titles;
        std::vector<qint64> ranks;
        for (const WindowRecord &record : snapshotter().snapshot({})) {
            titles.append(record.title);
            ranks.push_back(record.zOrder);
        }
        QCOMPARE(titles, (QStringList{QStringLiteral("front"), QStringLiteral("middle"),
                                      QStringLiteral("back")}));
        QCOMPARE(ranks, (std::vector<qint64>{0, 1, 2}));
    }

    void liveWindowsAreAllButTheMinimised()
    {
        const auto mail = m_desktop->launch(QStringLiteral("org.example.mail"), {});
        m_desktop->open(mail, QStringLiteral("Inbox"), {0, 0, 400, 300});
        const int small = m_desktop->open(m_pid, QStringLiteral("small"), {0, 0, 20, 20});
        m_desktop->window(small).isOnScreen = false;
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
