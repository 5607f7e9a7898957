#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"

#include <QRegularExpression>
#include <QTest>

#include <csignal>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

const QByteArray documentedScene =
    R"({"id":"11111111-1111-1111-1111-111111111111","configID":"c","name":"Scene 1",)"
    R"("createdAt":"2024-01-01T00:00:00Z","opensMissingApps":false,)"
    R"("layout":{"configID":"c","name":"","layoutName":"","savedAt":"2024-01-01T00:00:00Z",)"
    R"("displays":[],"windows":[]}})";

/// What a command says that is run to its end.
struct Command {
    Command(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        if (!process.waitForFinished(30'000))
            qFatal("%s does not end", qPrintable(program));
        status = process.exitCode();
        output = QString::fromUtf8(process.readAllStandardOutput());
        errors = QString::fromUtf8(process.readAllStandardError());
    }

    int status = 0;
    QString output;
    QString errors;
};

Command panorel(const QString &words)
{
    return {TestProgram::path(), words.split(u' ')};
}

Command busCall(const char *method, const char *arguments = "")
{
    const QString words = QStringLiteral("call --session --dest=org.panorel.Panorel "
                                         "--object-path=/org/panorel/Panorel --method=%1 %2")
                              .arg(QLatin1String(method), QLatin1String(arguments));
    return {u"gdbus"_qs, words.split(u' ', Qt::SkipEmptyParts)};
}

} // namespace

/// The command line as a script uses it, on the program on a real desktop.
class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theRunningProgramDoesWhatItIsToldAlsoOverTheBus();
    void withoutAProgramTheFilesAnswer();
    void everyCommandOfTheGuidesWorks();
};

void CommandLineTest::theRunningProgramDoesWhatItIsToldAlsoOverTheBus()
{
    const Rect learned{200, 200, 500, 400};
    const Rect elsewhere{700, 500, 450, 350};
    const SessionBus bus;
    DesktopSession desk;
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    const TestClient &window = desk.open(ClientKind::Plain, "letter", learned);
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    require([] { return panorel(u"status"_qs).status == 0; }, "an answer");

    desk.moveAndWait(window, elsewhere);
    const Command plan = panorel(u"restore --dry-run"_qs);
    QVERIFY2(plan.output.contains(u"“letter”  700,500 450x350 -> 200,200 500x400  by title"_qs),
             qPrintable(plan.output));
    QCOMPARE(desk.probe.restingFrame(window.window()), elsewhere);
    const Command restore = panorel(u"restore"_qs);
    QCOMPARE(restore.output + restore.errors, u"Put back 1 of 1 window\n"_qs);
    QCOMPARE(desk.probe.restingFrame(window.window()), learned);
    require([] { return busCall("org.panorel.Panorel.Status").status == 0; }, "the service");
    desk.moveAndWait(window, elsewhere);
    // As a desktop does for an action of the desktop file.
    QCOMPARE(busCall("org.freedesktop.Application.ActivateAction", "restore [] {}").status, 0);
    QCOMPARE(desk.probe.restingFrame(window.window()), learned);
    const QString refusal = busCall("org.panorel.Panorel.Apply", "Nothing false").errors;
    QVERIFY2(refusal.contains(u"org.panorel.Panorel.Error.NotFound"_qs), qPrintable(refusal));
    program.endCleanly(SIGTERM);
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

void CommandLineTest::withoutAProgramTheFilesAnswer()
{
    const TestHome home;
    const QTemporaryDir data;
    qputenv("PANOREL_DATA_DIR", QFile::encodeName(data.path()));
    qunsetenv("DISPLAY"); // as on a text console
    const Command restore = panorel(u"restore"_qs);
    QCOMPARE(restore.status, 3);
    QCOMPARE(restore.errors, u"panorel: Panorel is not running\n"_qs);

    const QString scenes = data.filePath(u"scenes.json"_qs);
    writeFile(scenes, R"({"lastAppliedByConfig":{},"scenes":[)" + documentedScene + "]}");
    const QString file = data.filePath(u"all.json"_qs);
    QCOMPARE(panorel(u"export "_qs + file).status, 0);
    QVERIFY(QFile::remove(scenes));
    QCOMPARE(panorel(u"scenes"_qs).output, u"No scenes.\n"_qs);
    QCOMPARE(panorel(u"import "_qs + file).errors, QString());
    QVERIFY(panorel(u"scenes"_qs).output.contains(u"Scene 1"_qs));
    QCOMPARE(QDir(data.filePath(u"backups"_qs)).entryList(QDir::Files).size(), 1);
    qunsetenv("PANOREL_DATA_DIR");
}

void CommandLineTest::everyCommandOfTheGuidesWorks()
{
    const QTemporaryDir folder;
    DesktopSession desk;
    desk.open(ClientKind::Plain, "letter", {200, 200, 500, 400});
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    const QString file = folder.filePath(u"state.json"_qs);
    require([&] { return panorel(u"export "_qs + file).status == 0; }, "an export");
    QByteArray state = readFile(file);
    const QByteArray noScenes = "\"scenes\": [\n            ]";
    QVERIFY(state.contains(noScenes));
    writeFile(file, state.replace(noScenes, QByteArray("\"scenes\": [") + documentedScene + ']'));
    QCOMPARE(panorel(u"import "_qs + file).errors, QString());
    QCOMPARE(panorel(u"restore"_qs).status, 0); // so that there is something to undo

    qputenv("PATH", QFileInfo(TestProgram::path()).path().toUtf8() + ":/usr/bin:/bin");
    static const QRegularExpression typed(u"(?m)^    (panorel [^\n]*)$"_qs);
    int count = 0;
    for (const char *name : {"/README.md", "/Documentation/UserGuide.md"}) {
        const QString guide =
            QString::fromUtf8(readFile(QStringLiteral(PANOREL_ROOT) + QLatin1String(name)));
        for (auto found = typed.globalMatch(guide); found.hasNext();) {
            const QString line = found.next().captured(1);
            const bool isFollowed = line.contains(u"--follow"_qs);
            QProcess shell;
            shell.setWorkingDirectory(folder.path());
            shell.start(u"sh"_qs, {u"-c"_qs, isFollowed ? line + u" | head -n 1"_qs : line});
            if (isFollowed) {
                require([&] { return shell.canReadLine(); }, "a line of the log");
                // It notices with the next line that nobody listens any more.
                QCOMPARE(panorel(u"restore"_qs).status, 0);
            }
            QVERIFY2(shell.waitForFinished(30'000) && shell.exitCode() == 0,
                     qPrintable(line + u": "_qs + QString::fromUtf8(shell.readAllStandardError())));
            ++count;
        }
    }
    QVERIFY(count > 12);
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
