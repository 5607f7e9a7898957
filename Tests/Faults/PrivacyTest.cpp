#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestKeyboard.h"

#include <QDirIterator>
#include <QTest>

#include <csignal>
#include <sys/stat.h>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr HotKeyCombo saveKey{1, HotKeyCombo::command | HotKeyCombo::shift};
constexpr xcb_keycode_t returnKey = 36;
constexpr xcb_keycode_t escapeKey = 9;

unsigned modeOf(const QString &path)
{
    struct stat info {};
    return lstat(QFile::encodeName(path).constData(), &info) == 0 ? info.st_mode & 0777U : 0777U;
}

/// The program in its own folders, which it finds open to everybody, and with a mask that keeps
/// nobody out.
struct Desk : DesktopSession {
    SessionBus bus;
    TestKeyboard keyboard;
    TestClient &client = open(ClientKind::Plain, "title\nof a secret", {200, 200, 500, 400});
    ChildProcess program{QStringLiteral(PANOREL_PROGRAM)};
    const QString data = server.home.path(QStringLiteral("data/Panorel/"));

    Desk()
    {
        writeFile(data + QStringLiteral("app.log"), {});
        writeFile(data + QStringLiteral("scenes.json"),
                  R"({"lastAppliedByConfig": {}, "scenes": []})");
        for (const char *name : {"", "app.log", "scenes.json"})
            QCOMPARE(chmod(QFile::encodeName(data + QLatin1String(name)).constData(), 0777), 0);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
        program.process().setProcessEnvironment(environment);
        const mode_t before = umask(0);
        program.start();
        umask(before);
        require([&] { return log().contains("learned layout: 1 windows"); }, "a learned desk");
    }
    QByteArray log() const { return readFile(data + QStringLiteral("app.log")); }

    /// What it has open to talk through, other than sockets of this machine.
    QStringList foreignSockets() const
    {
        const QString process = QStringLiteral("/proc/%1/").arg(program.processID());
        QStringList foreign;
        const auto local = readFile(process + u"net/unix"_qs).simplified().split(' ');
        const QDir open(process + u"fd"_qs);
        for (const QFileInfo &file : open.entryInfoList(QDir::Files | QDir::System)) {
            const QString target = file.symLinkTarget(); // empty where closed meanwhile
            const QString inode = target.section(u"socket:["_qs, 1).remove(u']');
            if (!inode.isEmpty() && !local.contains(inode.toLatin1()))
                foreign << target;
        }
        return foreign;
    }
};

} // namespace

class PrivacyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesAreForTheirUserAndNothingLeavesTheMachine()
    {
        Desk desk;
        const auto step = [&](const char *what, const std::function<bool()> &isDone) {
            require(
                [&] {
                    const QStringList foreign = desk.foreignSockets();
                    if (!foreign.isEmpty())
                        qFatal("%s: open is %s", what, qPrintable(foreign.join(u' ')));
                    return isDone();
                },
                what);
        };
        // Until it was heard: the program takes its keys after it has learned the desk.
        step("a saved layout", [&] {
            desk.keyboard.press(saveKey);
            return waitUntil([&] { return desk.log().contains("hotkey: layout saved"); }, 1'000);
        });
        ChildProcess second(QStringLiteral(PANOREL_PROGRAM));
        second.start();
        const auto panel = [&] { return desk.probe.find(QStringLiteral("Panorel")); };
        step("the panel", [&] { return panel() && desk.probe.activeWindow() == panel(); });
        step("the end of the second", [&] { return !second.running(); });

        desk.keyboard.press(returnKey);
        step("a restore", [&] { return desk.log().contains("Restore Now clicked"); });
        desk.keyboard.press(escapeKey);

        QCOMPARE(modeOf(desk.data), 0700U);
        QStringList open;
        int files = 0;
        for (const char *folder : {"data/Panorel", "config/Panorel", "run"}) {
            QDirIterator each(desk.server.home.path(QLatin1String(folder)),
                              {QStringLiteral("*.json"), QStringLiteral("*.log"),
                               QStringLiteral("*.ini"), QStringLiteral("panorel-*")},
                              QDir::Files | QDir::Hidden | QDir::System,
                              QDirIterator::Subdirectories);
            while (each.hasNext()) {
                ++files;
                if (const QString path = each.next(); modeOf(path) & 077)
                    open << QStringLiteral("%1 %2").arg(path).arg(modeOf(path), 0, 8);
            }
        }
        QCOMPARE(open, QStringList());
        QVERIFY2(files >= 7, qPrintable(QString::number(files))); // four stores, log, lock, socket
        kill(static_cast<pid_t>(desk.program.processID()), SIGTERM);
        require([&] { return !desk.program.running(); }, "the end of the program");
        // The title with a line feed is in no line of the log by itself.
        for (const QByteArray &line : desk.log().trimmed().split('\n'))
            QVERIFY2(line.startsWith("[20"), line);
    }
};

QTEST_GUILESS_MAIN(PrivacyTest)
#include "PrivacyTest.moc"
