#include "PanorelX11/Applications/GioLauncher.h"
#include "PanorelX11/Session/StartEnvironment.h"
#include "Support/TestHome.h"

#include <QFile>
#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace Panorel::X11 {

namespace {

/// Writes what it was started with, then stays.
constexpr auto probe = R"sh(#!/bin/sh
{
    tr '\0' '\n' </proc/$$/environ
    ls /proc/$$/fd | sed 's/^/open file /'
    echo "session: $(cut -d' ' -f6 /proc/$$/stat)"
    grep -E 'Sig(Ign|Blk)' /proc/$$/status
    echo "pid: $$"
} >"$REPORTS/$1.part"
mv "$REPORTS/$1.part" "$REPORTS/$1"
exec sleep 60
)sh";

} // namespace

class LauncherTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *folder : {"bin", "reports"})
            QVERIFY(QDir().mkpath(m_home.path(QLatin1String(folder))));
        qputenv("XDG_DATA_DIRS", path("none"));
        qputenv("REPORTS", path("reports"));
        qputenv("PATH", path("bin") + ':' + qgetenv("PATH"));
        writeFile(QFile::decodeName(path("bin/probe")), probe);
        QVERIFY(QFile::setPermissions(QFile::decodeName(path("bin/probe")),
                                      QFile::ReadOwner | QFile::ExeOwner));
        m_home.install(QStringLiteral("viewer"), "Exec=probe viewer\n");
        m_home.install(QStringLiteral("sub/editor"), "Exec=probe editor\nNoDisplay=true\n");
        m_home.install(QStringLiteral("hidden"), "Exec=probe hidden\nHidden=true\n");
        m_home.install(QStringLiteral("gone"), "Exec=no-such-program\n");
        m_home.install(QStringLiteral("../../outside/other"), "Exec=probe other\n");
        m_home.install(QStringLiteral("org.example.Activated"),
                       "Exec=probe activated\nDBusActivatable=true\n");
        // As the program does for itself after it has recorded how it was started.
        qputenv("DESKTOP_STARTUP_ID", "of this program's own start");
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("QT_QPA_PLATFORM", "wayland");
        StartEnvironment::record();
        qputenv("QT_QPA_PLATFORM", "xcb");
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    }

    void onlyAnInstalledApplicationIsFoundByItsID()
    {
        GioLauncher launcher;
        QCOMPARE(launcher.locate(QStringLiteral("viewer")), location("viewer"));
        QCOMPARE(launcher.locate(QStringLiteral("sub-editor")), location("sub/editor"));
        const QString others[] = {
            u"hidden"_qs,
            u"gone"_qs,
            u"../../outside/other"_qs,
            m_home.path(u"outside/other"_qs),
            u"viewer.desktop"_qs + QChar(u'\0'),
        };
        for (const QString &id : others)
            QVERIFY2(!launcher.locate(id), qPrintable(id.left(40)));
    }

    void whatIsOpenedStandsOnItsOwnFeet()
    {
        std::signal(SIGPIPE, SIG_IGN);            // as the toolkit does
        const int open = dup2(STDOUT_FILENO, 77); // handed on unless someone prevents it
        GioLauncher().open(location("viewer"));
        const QStringList report = reportOf("viewer");
        std::signal(SIGPIPE, SIG_DFL);
        close(open);
        QVERIFY(report.contains(QStringLiteral("QT_QPA_PLATFORM=wayland")));
        QVERIFY(report.contains(QStringLiteral("GIO_LAUNCHED_DESKTOP_FILE=") + location("viewer")));
        QVERIFY(report.contains(QStringLiteral("GIO_LAUNCHED_DESKTOP_FILE_PID=%1").arg(m_pid)));
        QVERIFY(report.filter(QStringLiteral("DBUS_SESSION_BUS_ADDRESS=")).isEmpty());
        QVERIFY(report.filter(QStringLiteral("DESKTOP_STARTUP_ID=")).isEmpty());
        QVERIFY(report.contains(QStringLiteral("open file 1")));
        QVERIFY(!report.contains(QStringLiteral("open file 77")));
        QVERIFY(report.contains(QStringLiteral("SigIgn:\t0000000000000000")));
        QVERIFY(report.contains(QStringLiteral("session: %1").arg(m_pid)));
        QCOMPARE(waitpid(-1, nullptr, WNOHANG), -1); // no child, alive or dead, is ours
        QCOMPARE(errno, ECHILD);
    }

    void whatCannotBeOpenedIsDroppedAndWithoutABusTheCommandIsRun()
    {
        GioLauncher().open(location("gone"));
        GioLauncher().open(QStringLiteral("/dev/null"));
        GioLauncher().open(location("org.example.Activated"));
        QVERIFY(!reportOf("activated").isEmpty());
    }

    void cleanup()
    {
        if (m_pid > 0)
            ::kill(std::exchange(m_pid, 0), SIGKILL);
    }

private:
    QByteArray path(const char *name) const
    {
        return QFile::encodeName(m_home.path(QLatin1String(name)));
    }
    QString location(const char *id) const { return m_home.application(QLatin1String(id)); }
    QStringList reportOf(const char *name)
    {
        const QString file = QFile::decodeName(path("reports/") + name);
        if (!QTest::qWaitFor([&] { return QFile::exists(file); }, 10'000))
            return {};
        const QStringList lines = QString::fromUtf8(readFile(file)).split(u'\n');
        m_pid = lines.filter(QStringLiteral("pid: ")).value(0).mid(5).toInt();
        return lines;
    }

    const TestHome m_home;
    int m_pid = 0; ///< of the application that reported last
};

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::LauncherTests)
#include "LauncherTests.moc"
