#include "PanorelX11/Applications/ApplicationRule.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

namespace Panorel::X11 {

namespace {

struct Case {
    const char *name;
    ApplicationFacts facts;
    QByteArray cgroup;
    const char *launchedFile;
    qint64 launchedFor;
    const char *executable;
    const char *expected;
};

constexpr qint64 pid = 4711;

ApplicationFacts wmClass(const char *instance, const char *name)
{
    return {{}, instance, name, pid};
}

QByteArray scope(const char *unit)
{
    return QByteArray("0::/user.slice/user-1000.slice/user@1000.service/app.slice/") + unit + '\n';
}

const std::vector<Case> &cases()
{
    static const std::vector<Case> table{
        {"GTK's id before all",
         {"org.example.Viewer", "mail", "Mail", pid},
         scope("app-gnome-mail-12.scope"),
         "",
         0,
         "",
         "org.example.Viewer"},
        {"GTK's id of nothing installed",
         {"org.example.Gone", "mail", "", pid},
         {},
         "",
         0,
         "",
         "mail"},
        {"scope with launcher", wmClass("x", "X"), scope("app-gnome-mail-12.scope"), "", 0, "",
         "mail"},
        {"scope without launcher and number", wmClass("x", "X"), scope("app-mail.scope"), "", 0, "",
         "mail"},
        {"scope with an escaped hyphen", wmClass("x", "X"),
         scope("app-gnome-two\\x2dparts-99.scope"), "", 0, "", "two-parts"},
        {"service with an instance", wmClass("x", "X"),
         scope("app-org.example.Viewer@ab12.service"), "", 0, "", "org.example.Viewer"},
        {"older control groups, several lines", wmClass("x", "X"),
         "5:cpu:/\n1:name=systemd:/a/app-mail-1.scope\n", "", 0, "", "mail"},
        {"broken escape at the end", wmClass("x", "X"), scope("app-mail\\x2-1.scope\\x"), "", 0, "",
         "wmclass:X"},
        {"typed in a terminal", wmClass("tool", "Tool"), scope("app-gnome-term-5.scope"), "", 0,
         "tool-bin", "wmclass:Tool"},
        {"terminal program in a terminal's window", wmClass("term", "Terminal"),
         scope("app-gnome-mail-12.scope"), "", 0, "", "mail"},
        {"launched in a terminal's window",
         wmClass("term", "Terminal"),
         {},
         "mail.desktop",
         pid,
         "",
         "mail"},
        {"started from a launched program",
         wmClass("x", "X"),
         {},
         "mail.desktop",
         pid - 1,
         "",
         "wmclass:X"},
        {"office suite: one process, the window says which", wmClass("office", "office-calc"),
         scope("app-gnome-office\\x2dwriter-3.scope"), "", 0, "", "office-calc"},
        {"StartupWMClass is the instance", wmClass("crx_abc", "Browser"), {}, "", 0, "", "webmail"},
        {"StartupWMClass is the class", wmClass("x", "Browser"), {}, "", 0, "", "browser-a"},
        {"StartupWMClass in another case", wmClass("x", "BROWSER"), {}, "", 0, "", "browser-a"},
        {"id in another case", wmClass("x", "MAIL"), {}, "", 0, "", "mail"},
        {"last part of the id", wmClass("viewer", ""), {}, "", 0, "", "org.example.Viewer"},
        {"one application starts the program", wmClass("x", "X"), {}, "", 0, "mail-bin", "mail"},
        {"two applications start the program",
         wmClass("x", "X"),
         {},
         "",
         0,
         "office-bin",
         "wmclass:X"},
        {"an interpreter is nobody's program",
         wmClass("x", "X"),
         {},
         "",
         0,
         "python3",
         "wmclass:X"},
        {"unknown with a class",
         wmClass("inst", "Some.Class"),
         {},
         "",
         0,
         "",
         "wmclass:Some.Class"},
        {"unknown with an instance only", wmClass("inst", ""), {}, "", 0, "", "wmclass:inst"},
        {"nothing at all", {}, {}, "", 0, "", "wmclass:unknown"},
        {"invalid text",
         wmClass("", "\xFF"
                     "A"),
         {},
         "",
         0,
         "",
         "wmclass:\uFFFDA"},
    };
    return table;
}

} // namespace

class ApplicationIdentityTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aWindowBelongsToAnInstalledApplication_data();
    void aWindowBelongsToAnInstalledApplication();
    void anUnknownApplicationHasAReadableName();
    void aProcessIsAskedAndMayBeGone();
    void anApplicationInstalledWhileRunningIsFound();

private:
    void install(const QString &id, const QByteArray &lines);

    QTemporaryDir m_home;
};

void ApplicationIdentityTests::initTestCase()
{
    qputenv("XDG_DATA_HOME", m_home.filePath(QStringLiteral("data")).toUtf8());
    qputenv("XDG_DATA_DIRS", m_home.filePath(QStringLiteral("none")).toUtf8());
    qputenv("LANGUAGE", "de");
    qputenv("LC_ALL", "C.UTF-8");
    // A desktop file counts as installed only if its program is there.
    qputenv("PATH", m_home.filePath(QStringLiteral("bin")).toUtf8() + ':' + qgetenv("PATH"));
    QDir().mkpath(m_home.filePath(QStringLiteral("bin")));
    QDir().mkpath(m_home.filePath(QStringLiteral("data/applications")));
    for (const char *program : {"mail-bin", "office-bin", "viewer-bin", "term-bin", "browser-bin",
                                "python3", "late-bin"}) {
        QFile file(m_home.filePath(QStringLiteral("bin/") + QLatin1String(program)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    }
    install(QStringLiteral("mail"), "Exec=\"mail-bin\" %U\nNoDisplay=true\n");
    install(QStringLiteral("two-parts"), "Exec=python3 two.py\n");
    install(QStringLiteral("org.example.Viewer"), "Exec=viewer-bin\nName[de]=Betrachter\n");
    install(QStringLiteral("term"),
            "Exec=term-bin\nStartupWMClass=Terminal\nCategories=System;TerminalEmulator;\n");
    install(QStringLiteral("office-writer"), "Exec=office-bin --writer\n");
    install(QStringLiteral("office-calc"), "Exec=office-bin --calc\n");
    install(QStringLiteral("browser-b"), "Exec=browser-bin\nStartupWMClass=Browser\n");
    install(QStringLiteral("browser-a"), "Exec=browser-bin\nStartupWMClass=Browser\n");
    install(QStringLiteral("webmail"), "Exec=browser-bin --app=1\nStartupWMClass=crx_abc\n");
}

void ApplicationIdentityTests::install(const QString &id, const QByteArray &lines)
{
    QFile file(m_home.filePath(QStringLiteral("data/applications/%1.desktop").arg(id)));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nName=Some name\n" + lines);
}

void ApplicationIdentityTests::aWindowBelongsToAnInstalledApplication_data()
{
    QTest::addColumn<qsizetype>("index");
    for (std::size_t i = 0; i < cases().size(); ++i)
        QTest::newRow(cases()[i].name) << qsizetype(i);
}

void ApplicationIdentityTests::aWindowBelongsToAnInstalledApplication()
{
    QFETCH(qsizetype, index);
    const Case &row = cases()[std::size_t(index)];
    DesktopList installed;
    ProcessFacts process;
    process.pid = pid;
    process.cgroup = row.cgroup;
    process.executable = QString::fromLatin1(row.executable);
    if (row.launchedFor)
        readLauncher(
            QByteArrayList{
                "A=1", QByteArray("GIO_LAUNCHED_DESKTOP_FILE=/elsewhere/") + row.launchedFile,
                "GIO_LAUNCHED_DESKTOP_FILE_PID=" + QByteArray::number(row.launchedFor), ""}
                .join('\0'),
            process);
    const auto *entry = resolveApplication(installed.entries(), row.facts, &process);
    QCOMPARE(entry ? entry->id : unclaimedIdentity(row.facts).id, QString::fromUtf8(row.expected));
}

void ApplicationIdentityTests::anUnknownApplicationHasAReadableName()
{
    const auto name = [](const char *text) { return unclaimedIdentity(wmClass("", text)).name; };
    QCOMPARE(name("xclock"), QStringLiteral("Xclock"));
    QCOMPARE(name("gimp-2.10"), QStringLiteral("Gimp-2.10"));
    QCOMPARE(name("org.example.viewer"), QStringLiteral("Viewer"));
    QCOMPARE(name(""), QStringLiteral("Unknown"));

    ApplicationIdentifier identifier;
    QCOMPARE(identifier.identify({"org.example.Viewer", {}, {}, {}}).name,
             QStringLiteral("Betrachter"));
}

void ApplicationIdentityTests::aProcessIsAskedAndMayBeGone()
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
    for (const qint64 bad : {qint64(0), qint64(-1), std::numeric_limits<qint64>::max()})
        QCOMPARE(identifier.identify({{}, "x", "X", bad}).id, QStringLiteral("wmclass:X"));
}

void ApplicationIdentityTests::anApplicationInstalledWhileRunningIsFound()
{
    ApplicationIdentifier identifier;
    const ApplicationFacts facts{"late", {}, {}, {}};
    QCOMPARE(identifier.identify(facts).id, QStringLiteral("wmclass:unknown"));
    install(QStringLiteral("late"), "Exec=late-bin\n");
    QTRY_COMPARE(identifier.identify(facts).id, QStringLiteral("late"));
}

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::ApplicationIdentityTests)
#include "ApplicationIdentityTests.moc"
