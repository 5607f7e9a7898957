#include "Desktop/Support/DesktopSession.h"
#include "Desktop/Support/TestProgram.h"

#include <QJsonDocument>
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
    QJsonObject json() const { return QJsonDocument::fromJson(output.toUtf8()).object(); }

    int status = 0;
    QString output;
    QString errors;
};

/// The words and the last argument, which may contain blanks.
Command panorel(const char *words, const QString &last = {})
{
    QStringList arguments = QString::fromUtf8(words).split(u' ');
    if (!last.isEmpty())
        arguments << last;
    return {TestProgram::path(), arguments};
}

Command busCall(const char *method, const char *arguments = "")
{
    const QString words = QStringLiteral("call --session --dest=org.panorel.Panorel "
                                         "--object-path=/org/panorel/Panorel --method=%1 %2")
                              .arg(QLatin1String(method), QLatin1String(arguments));
    return {QStringLiteral("gdbus"), words.split(u' ', Qt::SkipEmptyParts)};
}

} // namespace

/// The command line as a script uses it, on the program on a real desktop.
class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theRunningProgramDoesWhatItIsTold();
    void withoutAProgramTheFilesAnswer();
    void theSessionBusHasTheSameVerbs();
    void everyCommandOfTheGuidesWorks();
};

void CommandLineTest::theRunningProgramDoesWhatItIsTold()
{
    const Rect learned{200, 200, 500, 400};
    const Rect elsewhere{700, 500, 450, 350};
    DesktopSession desk;
    const TestClient &window = desk.open(ClientKind::Plain, "letter", learned);
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    require([] { return panorel("status").status == 0; }, "an answer");

    desk.moveAndWait(window, elsewhere);
    const Command plan = panorel("restore --dry-run");
    QVERIFY2(plan.output.contains(
                 QStringLiteral("“letter”  700,500 450x350 -> 200,200 500x400  by title")),
             qPrintable(plan.output));
    QCOMPARE(desk.probe.restingFrame(window.window()), elsewhere);
    QCOMPARE(panorel("undo").errors, QStringLiteral("panorel: there is nothing to undo\n"));

    const Command restore = panorel("restore");
    QCOMPARE(restore.output, QStringLiteral("Put back 1 of 1 window\n"));
    QCOMPARE(restore.errors, QString());
    QCOMPARE(desk.probe.restingFrame(window.window()), learned);
    const QJsonObject status = panorel("status --json").json();
    QCOMPARE(status[QStringLiteral("desk")][QStringLiteral("windows")].toInt(), 1);
    const Command missing = panorel("apply Nothing");
    QCOMPARE(missing.status, 4);
    QCOMPARE(missing.errors, QStringLiteral("panorel: there is no scene “Nothing”\n"));
    program.endCleanly(SIGTERM);
    QCOMPARE(program.logged("restore report:"), 1);
}

void CommandLineTest::withoutAProgramTheFilesAnswer()
{
    const TestHome home;
    const QTemporaryDir data;
    qputenv("PANOREL_DATA_DIR", QFile::encodeName(data.path()));
    qunsetenv("DISPLAY"); // as on a text console
    QCOMPARE(panorel("scenes").output, QStringLiteral("No scenes.\n"));
    const Command restore = panorel("restore");
    QCOMPARE(restore.status, 3);
    QCOMPARE(restore.errors, QStringLiteral("panorel: Panorel is not running\n"));
    QCOMPARE(panorel("dance").status, 2);
    QCOMPARE(panorel("status --json").json().value(QStringLiteral("running")), false);

    const QByteArray scenes = R"({"lastAppliedByConfig":{},"scenes":[)" + documentedScene + "]}";
    writeFile(data.filePath(QStringLiteral("scenes.json")), scenes);
    const QString file = data.filePath(QStringLiteral("all.json"));
    QCOMPARE(panorel("export", file).status, 0);
    QVERIFY(QFile::remove(data.filePath(QStringLiteral("scenes.json"))));
    QCOMPARE(panorel("scenes").output, QStringLiteral("No scenes.\n"));
    const Command import = panorel("import", file);
    QVERIFY2(import.output.startsWith(
                 QStringLiteral("Replaced 0 desks, 0 scenes, 0 rules, 0 triggers by 0 desks, 1 "
                                "scene, 0 rules, 0 triggers\n")),
             qPrintable(import.output + import.errors));
    QVERIFY(panorel("scenes").output.contains(QStringLiteral("Scene 1")));
    QCOMPARE(QDir(data.filePath(QStringLiteral("backups"))).entryList(QDir::Files).size(), 1);
    qunsetenv("PANOREL_DATA_DIR");
}

void CommandLineTest::theSessionBusHasTheSameVerbs()
{
    const SessionBus bus;
    DesktopSession desk;
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    const Rect learned{200, 200, 500, 400};
    const TestClient &window = desk.open(ClientKind::Plain, "letter", learned);
    {
        TestProgram program;
        program.awaitLogged(1, "learned layout: 1 windows");
        require([] { return busCall("org.panorel.Panorel.Status").status == 0; }, "the service");
        desk.moveAndWait(window, {700, 500, 450, 350});
        const Command plan = busCall("org.panorel.Panorel.Restore", "true");
        QVERIFY2(plan.output.contains(QStringLiteral("\"matchedBy\": \"title\"")),
                 qPrintable(plan.output + plan.errors));
        QCOMPARE(desk.probe.restingFrame(window.window()), (Rect{700, 500, 450, 350}));
        // As a desktop does for an action of the desktop file.
        QCOMPARE(busCall("org.freedesktop.Application.ActivateAction", "restore [] {}").status, 0);
        QCOMPARE(desk.probe.restingFrame(window.window()), learned);
        const Command missing = busCall("org.panorel.Panorel.Apply", "Nothing false");
        QVERIFY2(missing.errors.contains(QStringLiteral("org.panorel.Panorel.Error.NotFound")),
                 qPrintable(missing.errors));
        program.endCleanly(SIGTERM);
    }
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
}

/// In their order, on a desk with a scene, with what a shell does to quotes and comments.
void CommandLineTest::everyCommandOfTheGuidesWorks()
{
    const QTemporaryDir folder;
    DesktopSession desk;
    desk.open(ClientKind::Plain, "letter", {200, 200, 500, 400});
    TestProgram program;
    program.awaitLogged(1, "learned layout: 1 windows");
    const QString file = folder.filePath(QStringLiteral("state.json"));
    require([&] { return panorel("export", file).status == 0; }, "an export");
    QByteArray state = readFile(file);
    const QByteArray noScenes = "\"scenes\": [\n            ]";
    QVERIFY(state.contains(noScenes));
    writeFile(file, state.replace(noScenes, QByteArray("\"scenes\": [") + documentedScene + ']'));
    QCOMPARE(panorel("import", file).errors, QString());
    QCOMPARE(panorel("restore").status, 0); // so that there is something to undo

    qputenv("PATH", QFileInfo(TestProgram::path()).path().toUtf8() + ":/usr/bin:/bin");
    static const QRegularExpression typed(QStringLiteral("(?m)^    (panorel [^\n]*)$"));
    int count = 0;
    for (const char *name : {"/README.md", "/Documentation/UserGuide.md"}) {
        const QString guide =
            QString::fromUtf8(readFile(QStringLiteral(PANOREL_ROOT) + QLatin1String(name)));
        for (auto found = typed.globalMatch(guide); found.hasNext();) {
            const QString line = found.next().captured(1);
            const bool isFollowed = line.contains(QStringLiteral("--follow"));
            QProcess shell;
            shell.setWorkingDirectory(folder.path());
            shell.start(
                QStringLiteral("sh"),
                {QStringLiteral("-c"), isFollowed ? line + QStringLiteral(" | head -n 1") : line});
            if (isFollowed) {
                require([&] { return shell.canReadLine(); }, "a line of the log");
                QVERIFY(shell.readLine().startsWith("["));
                // It notices with the next line that nobody listens any more.
                QCOMPARE(panorel("restore").status, 0);
            }
            QVERIFY2(shell.waitForFinished(30'000), qPrintable(line));
            QVERIFY2(shell.exitCode() == 0,
                     qPrintable(line + QStringLiteral(": ")
                                + QString::fromUtf8(shell.readAllStandardError())));
            ++count;
        }
    }
    QVERIFY(count > 12);
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
