#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"

#include <QTest>

#include <csignal>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr quint32 commandShift = HotKeyCombo::command | HotKeyCombo::shift;
constexpr HotKeyCombo restoreKey{15, commandShift};
constexpr HotKeyCombo saveKey{1, commandShift};

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
    /// The key works, and what it does.
    void checkRestore()
    {
        scatter();
        program->pressUntilLogged(keyboard, restoreKey, "restore report: 3/3 restored, 0 failed");
        QCOMPARE(frames(), before);
        program->awaitRest();
    }
};

void setDescriptorLimit(pid_t process, int soft)
{
    run(u"prlimit"_qs, {u"--pid=%1"_qs.arg(process), u"--nofile=%1:"_qs.arg(soft)});
}

/// The number that its next descriptor would have. A limit far below what is open would also keep
/// it from polling that.
int nextDescriptor(pid_t process)
{
    int next = 3;
    const QDir open(QStringLiteral("/proc/%1/fd").arg(process));
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
    void theSessionBusMayGoOrHang();
    void aStormOfTitlesHoldsUpNothing();
    void aProgramThatHangsHoldsUpNoOther();
    void withoutADescriptorItGoesOn();
};

void DesktopFaultsTest::theWindowManagerMayGoAndComeBack()
{
    Desk desk;
    desk.manager.reset();
    desk.program->awaitRest();
    desk.manager = std::make_unique<TestWindowManager>(QStringLiteral("xfwm4"));
    desk.frames(); // at rest
    desk.checkRestore();
    QCOMPARE(desk.program->logged("learned layout"), 1); // nothing of the time in between
    desk.program->endCleanly(SIGTERM);
}

void DesktopFaultsTest::theSessionBusMayGoOrHang()
{
    for (const bool hangs : {false, true}) {
        auto bus = std::make_unique<SessionBus>();
        Desk desk(bus->address());
        desk.program->awaitRest(); // until its event loop runs the toolkit waits for the bus
        if (hangs)
            bus->stop();
        else
            bus.reset();
        desk.checkRestore();
        desk.program->endCleanly(SIGTERM);
    }
}

void DesktopFaultsTest::aStormOfTitlesHoldsUpNothing()
{
    constexpr int storm = 1'500; // some 500 a second
    Desk desk;
    desk.program->awaitRest();
    const auto requests = [&] {
        const QByteArray io = desk.program->processFile(QStringLiteral("io"));
        return io.mid(io.indexOf("syscw: ") + 7).split('\n').at(0).toLongLong();
    };
    const qint64 requestsBefore = requests();
    for (int change = 0; change < storm; ++change) {
        desk.probe.setTitle(desk.left.window(), "left " + QByteArray::number(change));
        QTest::qSleep(2);
    }
    desk.probe.setTitle(desk.left.window(), "left");
    desk.probe.sync();
    // What changes is not read until somebody wants to know.
    QVERIFY2(requests() - requestsBefore < storm / 10,
             qPrintable(QString::number(requests() - requestsBefore)));
    desk.checkRestore();
    desk.program->endCleanly(SIGTERM);
}

void DesktopFaultsTest::aProgramThatHangsHoldsUpNoOther()
{
    Desk desk;
    desk.scatter();
    desk.activateAndWait(desk.right);
    desk.right.stop();
    desk.program->pressUntilLogged(desk.keyboard, restoreKey, "restore report: ");
    QCOMPARE(desk.program->logged("restore report: 3/3 restored, 0 failed"), 1);
    desk.right.goOn();
    QTRY_COMPARE(desk.frames(), desk.before);
    desk.program->awaitRest();
    desk.program->endCleanly(SIGTERM);
}

void DesktopFaultsTest::withoutADescriptorItGoesOn()
{
    Desk desk;
    desk.scatter();
    setDescriptorLimit(desk.program->processID(), nextDescriptor(desk.program->processID()));
    const auto isRestored = [&] { // the log may have no descriptor either
        desk.keyboard.press(restoreKey);
        return desk.frames() == desk.before;
    };
    require(isRestored, "a restored desk");
    desk.program->awaitRest();
    setDescriptorLimit(desk.program->processID(), 1024);
    desk.program->pressUntilLogged(desk.keyboard, saveKey, "hotkey: layout saved (3 windows)");
}

QTEST_GUILESS_MAIN(DesktopFaultsTest)
#include "DesktopFaultsTest.moc"
