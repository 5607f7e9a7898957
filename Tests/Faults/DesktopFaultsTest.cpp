#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"

#include <QJsonArray>
#include <QRandomGenerator>
#include <QTest>

#include <csignal>
#include <sys/resource.h>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr quint32 commandShift = HotKeyCombo::command | HotKeyCombo::shift;
constexpr HotKeyCombo restoreKey{15, commandShift};
constexpr HotKeyCombo saveKey{1, commandShift};
constexpr HotKeyCombo stashKey{1, HotKeyCombo::option | HotKeyCombo::shift};

/// Three windows that the program has learned.
struct Desk : DesktopSession {
    TestKeyboard keyboard;
    TestClient &left = open(ClientKind::Plain, "left", {100, 100, 500, 400});
    TestClient &right = open(ClientKind::Qt, "right", {3100, 500, 600, 450});
    TestClient &above = open(ClientKind::StaticGravity, "above", {2000, 80, 640, 420});
    const QStringList before = frames();
    std::unique_ptr<TestProgram> program;

    explicit Desk(const QString &busAddress = QStringLiteral("disabled:"))
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress.toUtf8());
        program = std::make_unique<TestProgram>();
        program->awaitLogged(1, "learned layout: 3 windows");
    }

    void scatter()
    {
        double x = 300;
        for (const TestClient &client : clients)
            moveAndWait(client, {x += 200, 500, 450, 350});
    }
    void pressUntilLogged(const HotKeyCombo &combo, const char *text)
    {
        program->pressUntilLogged(keyboard, combo, text);
    }
    /// The key works, and what it does.
    void checkRestore()
    {
        scatter();
        pressUntilLogged(restoreKey, "restore report: 3/3 restored, 0 failed");
        QCOMPARE(frames(), before);
        program->awaitRest();
    }
};

void setDescriptorLimit(pid_t process, rlim_t soft)
{
    rlimit limit{};
    QCOMPARE(prlimit(process, RLIMIT_NOFILE, nullptr, &limit), 0);
    limit.rlim_cur = soft;
    QCOMPARE(prlimit(process, RLIMIT_NOFILE, &limit, nullptr), 0);
}

/// The number that its next descriptor would have. A limit far below what is open would also keep
/// it from polling that.
rlim_t nextDescriptor(pid_t process)
{
    rlim_t next = 0;
    const QDir open(QStringLiteral("/proc/%1/fd").arg(process));
    while (!QFileInfo(open.filePath(QString::number(next))).isSymLink())
        ++next;
    while (QFileInfo(open.filePath(QString::number(next))).isSymLink())
        ++next;
    return next;
}

} // namespace

/// The running program when what it lives among goes, hangs or runs wild.
class DesktopFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowManagerMayGoAndComeBack();
    void theSessionBusMayGo();
    void aStormOfTitlesHoldsUpNothing();
    void aProgramThatHangsHoldsUpNoOther();
    void withoutADescriptorItGoesOn();
    void killedWhileItSavesItGoesOnFromThere();
};

void DesktopFaultsTest::theWindowManagerMayGoAndComeBack()
{
    for (const bool isAnother : {true, false}) {
        Desk desk;
        if (isAnother) {
            desk.manager.reset();
            desk.program->awaitRest();
            desk.manager = std::make_unique<TestWindowManager>(QStringLiteral("xfwm4"));
        } else {
            // Its next window may have the same number, but not this name.
            const QString old = QStringLiteral("restarting");
            desk.probe.setTitle(desk.probe.managerWindow(), old.toUtf8());
            run(QStringLiteral("openbox"), {QStringLiteral("--restart")});
            require([&] { return desk.probe.title(desk.probe.managerWindow()) != old; },
                    "the restart");
            desk.probe.awaitManager();
        }
        desk.frames(); // at rest
        desk.checkRestore();
        QCOMPARE(desk.program->logged("learned layout"), 1); // nothing of the time in between
        desk.program->endCleanly(SIGTERM);
    }
}

void DesktopFaultsTest::theSessionBusMayGo()
{
    auto bus = std::make_unique<SessionBus>();
    Desk desk(bus->address());
    bus.reset();
    desk.checkRestore();
    desk.program->endCleanly(SIGTERM);
}

void DesktopFaultsTest::aStormOfTitlesHoldsUpNothing()
{
    constexpr int storm = 1'500; // some 500 a second
    constexpr int longestStorm = 60'000;
    Desk desk;
    desk.scatter();
    desk.program->awaitRest();
    const auto requests = [&] {
        const QByteArray io = desk.program->processFile(QStringLiteral("io"));
        return io.mid(io.indexOf("syscw: ") + 7).split('\n').at(0).toLongLong();
    };
    int changes = 0;
    const auto change = [&] {
        desk.probe.setTitle(desk.left.window(), "left " + QByteArray::number(++changes));
        QTest::qSleep(2);
    };
    const qint64 requestsBefore = requests();
    while (changes < storm)
        change();
    desk.probe.sync();
    // What changes is not read until somebody wants to know.
    QVERIFY2(requests() - requestsBefore < storm / 10,
             qPrintable(QString::number(requests() - requestsBefore)));

    desk.keyboard.press(restoreKey);
    while (desk.program->logged("restore report: 3/3 restored") == 0 && changes < longestStorm)
        change();
    QVERIFY(changes < longestStorm);
    desk.pressUntilLogged(saveKey, "hotkey: layout saved (3 windows)");
    const QByteArray learned = desk.program->read(QStringLiteral("layouts.json"));
    QVERIFY2(learned.contains("\"left " + QByteArray::number(changes) + '"'), learned);
    desk.program->awaitRest();
    desk.program->endCleanly(SIGTERM);
}

void DesktopFaultsTest::aProgramThatHangsHoldsUpNoOther()
{
    Desk desk;
    desk.scatter();
    desk.activateAndWait(desk.right);
    desk.right.stop();
    desk.pressUntilLogged(restoreKey, "restore report: ");
    QCOMPARE(desk.program->logged("restore report: 3/3 restored, 0 failed"), 1);
    desk.pressUntilLogged(stashKey, "stash: hid ");
    for (const TestClient &client : desk.clients)
        require([&] { return desk.isMinimised(client); }, "a stashed window");
    desk.pressUntilLogged(stashKey, "restore report: ");
    for (const TestClient *client : {&desk.left, &desk.above})
        require([&] { return !desk.isMinimised(*client); }, "a window that is back");
    desk.right.goOn();
    require([&] { return !desk.isMinimised(desk.right); }, "the window that hung");
    QTRY_COMPARE(desk.frames(), desk.before);
    desk.program->awaitRest();
    desk.program->endCleanly(SIGTERM);
}

void DesktopFaultsTest::withoutADescriptorItGoesOn()
{
    Desk desk;
    desk.scatter();
    setDescriptorLimit(desk.program->processID(), nextDescriptor(desk.program->processID()));
    // The log may have no descriptor either.
    require([&] { return desk.keyboard.press(restoreKey), desk.frames() == desk.before; },
            "a restored desk");
    ChildProcess second(QStringLiteral(PANOREL_PROGRAM)); // it can't be answered
    second.silence();
    second.start();
    require([&] { return !second.running(); }, "the end of the second");
    QVERIFY(second.process().exitCode() != 0);
    desk.program->awaitRest();

    setDescriptorLimit(desk.program->processID(), 1024);
    desk.pressUntilLogged(saveKey, "hotkey: layout saved (3 windows)");
    ChildProcess third(QStringLiteral(PANOREL_PROGRAM));
    third.start();
    require([&] { return !third.running(); }, "the end of the third");
    QCOMPARE(third.process().exitCode(), 0);
    require([&] { return desk.probe.find(QStringLiteral("Panorel")).has_value(); }, "the panel");
}

void DesktopFaultsTest::killedWhileItSavesItGoesOnFromThere()
{
    Desk desk;
    for (int kill = 0; kill < 5; ++kill) {
        desk.pressUntilLogged(saveKey, "hotkey: layout saved");
        desk.keyboard.press(saveKey);
        QTest::qSleep(int(QRandomGenerator::global()->bounded(20)));
        desk.program->killAndStartAgain();
        desk.program->awaitLogged(kill + 2, "started: ");
        desk.program->awaitRest(); // it has learned: the windows may move
        desk.checkRestore();
    }
    QCOMPARE(desk.program->layouts().value(u"layouts").toArray().size(), 1);
    const QStringList files = desk.program->files();
    QVERIFY2(files.filter(QStringLiteral("corrupt")).isEmpty() && files.size() <= 8,
             qPrintable(files.join(u' ')));
    desk.program->endCleanly(SIGTERM);
}

QTEST_GUILESS_MAIN(DesktopFaultsTest)
#include "DesktopFaultsTest.moc"
