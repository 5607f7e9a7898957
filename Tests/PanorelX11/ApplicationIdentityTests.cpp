#include "PanorelX11/Applications/ApplicationRule.h"
#include "Support/TestHome.h"

#include <QFile>
#include <QProcess>
#include <QTest>

#include <unistd.h>

namespace Panorel::X11 {

namespace {

constexpr qint64 pid = 4711;

struct Case {
    const char *name;
    const char *gtkID;
    const char *instance;
    const char *wmClass;
    const char *unit; ///< the process's control group, below the usual slices
    const char *executable;
    const char *expected;
};

constexpr Case cases[] = {
    {"GTK's id before all", "org.example.Viewer", "mail", "", "app-mail-1.scope", "",
     "org.example.Viewer"},
    {"scope with launcher", "", "x", "X", "app-gnome-mail-12.scope", "", "mail"},
    {"escaped hyphen", "", "x", "X", "app-gnome-two\\x2dparts-9.scope", "", "two-parts"},
    {"typed in a terminal", "", "tool", "Tool", "app-gnome-term-5.scope", "", "wmclass:Tool"},
    {"office suite: one process, the window says which", "", "office", "office-calc",
     "app-gnome-office\\x2dwriter-3.scope", "", "office-calc"},
    {"StartupWMClass is the instance", "", "crx_abc", "Browser", "", "", "webmail"},
    {"StartupWMClass is the class", "", "x", "Browser", "", "", "browser-a"},
    {"one application starts the program", "", "x", "X", "", "mail-bin", "mail"},
    {"two applications start the program", "", "x", "X", "", "office-bin", "wmclass:X"},
    {"an interpreter is nobody's program", "", "x", "X", "", "python3", "wmclass:X"},
    {"nothing at all", "", "", "", "", "", "wmclass:unknown"},
};

} // namespace

class ApplicationIdentityTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_DATA_DIRS", m_home.path(QStringLiteral("none")).toUtf8());
        // A desktop file counts as installed only if its program is there.
        qputenv("PATH", m_home.path(QStringLiteral("bin")).toUtf8() + ':' + qgetenv("PATH"));
        QDir().mkpath(m_home.path(QStringLiteral("bin")));
        for (const char *program : {"mail-bin", "office-bin", "viewer-bin", "term-bin",
                                    "browser-bin", "python3", "late-bin"})
            QVERIFY(QFile::link(QStringLiteral("/bin/true"),
                                m_home.path(QStringLiteral("bin/") + QLatin1String(program))));
        m_home.install(QStringLiteral("mail"), "Exec=\"mail-bin\" %U\nNoDisplay=true\n");
        m_home.install(QStringLiteral("two-parts"), "Exec=python3 two.py\n");
        m_home.install(QStringLiteral("org.example.Viewer"), "Exec=viewer-bin\n");
        m_home.install(
            QStringLiteral("term"),
            "Exec=term-bin\nStartupWMClass=Terminal\nCategories=System;TerminalEmulator;\n");
        m_home.install(QStringLiteral("office-writer"), "Exec=office-bin --writer\n");
        m_home.install(QStringLiteral("office-calc"), "Exec=office-bin --calc\n");
        m_home.install(QStringLiteral("browser-b"), "Exec=browser-bin\nStartupWMClass=Browser\n");
        m_home.install(QStringLiteral("browser-a"), "Exec=browser-bin\nStartupWMClass=Browser\n");
        m_home.install(QStringLiteral("webmail"),
                       "Exec=browser-bin --app=1\nStartupWMClass=crx_abc\n");
    }

    void aWindowBelongsToAnInstalledApplication()
    {
        DesktopList installed;
        for (const Case &row : cases) {
            ProcessFacts process;
            process.pid = pid;
            process.cgroup =
                QByteArray("0::/user.slice/user@1000.service/app.slice/") + row.unit + '\n';
            process.executable = QString::fromLatin1(row.executable);
            const ApplicationFacts facts{row.gtkID, row.instance, row.wmClass, pid};
            const auto *entry = resolveApplication(installed.entries(), facts, &process);
            const QString id = entry ? entry->id : unclaimedIdentity(facts).id;
            const QString name = QLatin1String(row.name) + QStringLiteral(": ");
            QCOMPARE(name + id, name + QString::fromUtf8(row.expected));
        }
    }

    void theLauncherNamesTheProcessItLaunched()
    {
        DesktopList installed;
        const ApplicationFacts facts{{}, "term", "Terminal", pid};
        for (const auto &[launched, expected] :
             {std::pair(pid, "mail"), std::pair(pid - 1, "term")}) {
            ProcessFacts process;
            process.pid = pid;
            process.cgroup = "0::/app.slice/app-term-1.scope"; // of whoever started it
            const QByteArray number = QByteArray::number(launched);
            readLauncher("A=1" + QByteArray(1, '\0')
                             + "GIO_LAUNCHED_DESKTOP_FILE=/elsewhere/mail.desktop" + '\0'
                             + "GIO_LAUNCHED_DESKTOP_FILE_PID=" + number + '\0',
                         process);
            const auto *entry = resolveApplication(installed.entries(), facts, &process);
            QCOMPARE(entry->id, QString::fromLatin1(expected));
        }
    }

    void aProcessIsAskedAndMayBeGone()
    {
        ApplicationIdentifier identifier;
        QProcess process;
        process.setProgram(QStringLiteral("true")); // in its place, a shell under a name of ours:
        process.setChildProcessModifier(
            [] { execl("/bin/sh", "/opt/mail-bin", "-c", "read x", nullptr); });
        process.start();
        QVERIFY(process.waitForStarted());
        const ApplicationFacts facts{{}, "x", "X", process.processId()};
        QTRY_COMPARE(identifier.identify(facts).id, QStringLiteral("mail"));

        process.closeWriteChannel();
        QVERIFY(process.waitForFinished());
        QCOMPARE(identifier.identify(facts).id, QStringLiteral("wmclass:X"));
    }

    void anApplicationInstalledWhileRunningIsFound()
    {
        ApplicationIdentifier identifier;
        const ApplicationFacts facts{"late", {}, {}, {}};
        QCOMPARE(identifier.identify(facts).id, QStringLiteral("wmclass:unknown"));
        m_home.install(QStringLiteral("late"), "Exec=late-bin\n");
        QTRY_COMPARE(identifier.identify(facts).id, QStringLiteral("late"));
    }

private:
    const TestHome m_home;
};

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::ApplicationIdentityTests)
#include "ApplicationIdentityTests.moc"
