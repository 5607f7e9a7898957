#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "Support/InMemoryDesktop.h"

#include <QTest>

using namespace Panorel;

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
        row("exactly 40 by 40", true, [](auto &window) { window.frame = {5, 5, 40, 40}; });
        row("39 wide", false, [](auto &window) { window.frame.width = 39; });
        row("minimised", false, [](auto &window) { window.isMinimized = true; });
        row("full-screen", false, [](auto &window) { window.isFullScreen = true; });
        row("on another layer", false, [](auto &window) { window.layer = 25; });
        row("invisible", false, [](auto &window) { window.alpha = 0; });
        row("without a title", true, [](auto &window) { window.title.reset(); });
        row("without a position", false, [](auto &window) { window.hidesPosition = true; });
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
        const auto unidentified = m_desktop->add({}, QStringLiteral("Unidentified"));
        for (const auto pid : {menu, nameless, unidentified})
            m_desktop->open(pid, QStringLiteral("A window"), {10, 10, 400, 300});

        const auto records = snapshotter().snapshot({});
        QCOMPARE(records.size(), 1u);
        QCOMPARE(records[0].appName, QStringLiteral("org.example.nameless"));
    }

    void aWindowBelongsToTheDisplayItOverlapsMost()
    {
        std::vector<DisplayInfo> displays(2);
        displays[0].uuid = QStringLiteral("left");
        displays[0].frame = {0, 0, 1000, 800};
        displays[1].frame = {1000, 0, 1000, 800};
        // Equal overlaps, and none at all, go to the first.
        const int number = m_desktop->open(m_pid, QStringLiteral("Notes"), {0, 10, 200, 300});
        for (const auto &[x, display] : {std::pair(850, 0), {951, 1}, {900, 0}, {9000, 0}}) {
            m_desktop->window(number).frame.x = x;
            QCOMPARE(snapshotter().snapshot(displays).at(0).displayUUID,
                     displays.at(size_t(display)).uuid);
        }
    }

    void liveWindowsAreAllButTheMinimised()
    {
        const auto mail = m_desktop->launch(QStringLiteral("org.example.mail"), {});
        m_desktop->open(mail, QStringLiteral("Inbox"), {0, 0, 400, 300});
        m_desktop->open(m_pid, QStringLiteral("small"), {0, 0, 20, 20});
        m_desktop->minimize(m_desktop->open(m_pid, QStringLiteral("away"), {0, 0, 400, 300}));
        const auto all = snapshotter().liveWindows();
        QCOMPARE(all.size(), 2u);
        QVERIFY(all[0].live.title == u"small" && all[0].live.id == 0 && all[1].live.id == 1);
    }

    void withoutAListNothingIsSeen()
    {
        m_desktop->open(m_pid, QStringLiteral("Notes"), {0, 0, 400, 300});
        m_desktop->listReadable = false;
        QVERIFY(snapshotter().snapshot({}).empty());
    }

private:
    WindowSnapshotter snapshotter() { return {*m_desktop, *m_desktop, *m_desktop}; }

    std::unique_ptr<InMemoryDesktop> m_desktop;
    ProcessIdentifier m_pid = 0;
};

QTEST_GUILESS_MAIN(WindowSnapshotterTests)
#include "WindowSnapshotterTests.moc"
