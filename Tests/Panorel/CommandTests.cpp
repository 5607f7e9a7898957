#include "Panorel/Commands/CommandLine.h"
#include "Panorel/Commands/CommandService.h"
#include "Panorel/Commands/CommandText.h"
#include "Panorel/Commands/LogFollower.h"
#include "Panorel/Commands/SceneChoice.h"
#include "Panorel/Commands/Verbs.h"
#include "Panorel/InMemoryProgram.h"
#include "Panorel/Records.h"
#include "Support/TestHome.h"

#include <QJsonDocument>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

QString word(const char *text)
{
    return QString::fromUtf8(text);
}

/// The program with the command line's other end.
struct CommandedProgram : Program {
    int stateReplaced = 0;
    std::optional<CommandService> service;

    CommandedProgram()
    {
        service.emplace(*controller, panel, services(), [this] { ++stateReplaced; });
    }
    CommandReply run(const char *verb, const std::vector<QString> &arguments = {},
                     bool dryRun = false)
    {
        return service->run({word(verb), arguments, dryRun});
    }
    QString text(const char *verb, const std::vector<QString> &arguments = {}, bool dryRun = false)
    {
        const CommandReply reply = run(verb, arguments, dryRun);
        return reply.status == ExitStatus::Done
                   ? textOf({word(verb), arguments, dryRun}, reply.result)
                   : reply.error;
    }
    /// Everything that a dry run must leave alone.
    QStringList traces()
    {
        QStringList traces = dir.logged();
        for (const QString &name : dir.names()) {
            if (name != QStringLiteral("app.log"))
                traces << name << QString::fromUtf8(dir.read(name));
        }
        traces << panel.lastAction() << (panel.canUndo() ? word("undo") : word("no undo"));
        return traces;
    }
    QString exported(const char *name)
    {
        const QString file = dir.path(word(name));
        const CommandReply reply = run("export", {file});
        return reply.status == ExitStatus::Done ? file : reply.error;
    }
};

/// "program", "help", "version", the command with its options, or why it is none.
QString understoodOf(const QString &typed)
{
    const auto parsed = CommandLine::parse(typed.split(u' ', Qt::SkipEmptyParts));
    if (const auto *mistake = std::get_if<CommandLine::Mistake>(&parsed))
        return mistake->message;
    const auto *command = std::get_if<CommandLine::RunCommand>(&parsed);
    if (!command)
        return word(std::array{"program", "help", "version"}[parsed.index()]);
    const CommandRequest &request = command->request;
    QStringList words{request.verb};
    words.append({request.arguments.begin(), request.arguments.end()});
    for (const auto &[isOn, name] :
         {std::pair{request.dryRun, "dry"}, std::pair{command->json, "json"},
          std::pair{command->follow, "follow"}}) {
        if (isOn)
            words << word(name);
    }
    return words.join(u' ');
}

} // namespace

class CommandTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatIsTypedIsUnderstoodOrRefused()
    {
        const std::pair<const char *, const char *> rows[] = {
            {"", "program"},
            {"-session 1 2", "program"}, // what a session manager adds
            {"--help", "help"},
            {"restore -h", "help"},
            {"-v", "version"},
            {"restore", "restore"},
            {"restore --dry-run --json", "restore dry json"},
            {"--json apply Work", "apply Work json"},
            {"apply -- --dry-run", "apply --dry-run"},
            {"log --follow", "log follow"},
            {"import a.json --dry-run", "import a.json dry"},
            {"dance", "“dance” is no verb of Panorel; see panorel --help"},
            {"--dance", "there is no option --dance; see panorel --help"},
            {"undo --dry-run", "“undo” has no option --dry-run; see panorel --help"},
            {"scenes --follow", "“scenes” has no option --follow; see panorel --help"},
            {"apply", "“apply” needs NAME|ID; see panorel --help"},
            {"export a b", "“export” can't use “b”; see panorel --help"},
            {"stash now", "“stash” can't use “now”; see panorel --help"}};
        for (const auto &[typed, understood] : rows)
            QCOMPARE(understoodOf(word(typed)), word(understood));
    }

    void eachVerbDoesWhatItsRowInThePanelDoes()
    {
        CommandedProgram program;
        QCOMPARE(program.text("undo"), word("there is nothing to undo"));
        program.desktop.window(program.mail).frame = clampedPlace;
        QCOMPARE(program.text("restore"), word("Put back 2 of 2 windows\n"));
        QCOMPARE(program.mailFrame(), rightPlace);
        QCOMPARE(program.text("undo"), word("Put back 2 of 2 windows\n"));
        QCOMPARE(program.mailFrame(), clampedPlace);
        QCOMPARE(program.text("save"), word("Saved 2 windows\n"));
        QCOMPARE(program.learnedMailFrame(), clampedPlace);
        QCOMPARE(program.text("stash"), word("Desk stashed\n"));
        QVERIFY(program.panel.isStashed());
        QCOMPARE(program.text("stash"), word("Desk brought back\n"));

        QCOMPARE(program.text("scenes"), word("No scenes.\n"));
        program.panel.onSaveScene();
        program.desktop.window(program.mail).frame = rightPlace;
        QCOMPARE(program.text("apply", {word("Scene 1")}),
                 word("Applied “Scene 1”: 2 of 2 windows\n"));
        QCOMPARE(program.mailFrame(), clampedPlace);
        QVERIFY(program.text("scenes").contains(word("Scene 1  this desk  2 windows")));
        QVERIFY(
            program.text("desks").endsWith(word("2 windows  2024-05-13T09:20:00Z  here now\n")));
        QVERIFY(program.text("status").contains(word("  Applied Scene 1: 2 windows\n")));
        program.controller->rules().set({word("mail"), true, false});
        QCOMPARE(program.text("rules"), word("mail  left alone\n"));
        program.controller->triggers().add(
            {QUuid::createUuid(), QUuid::createUuid(), {TimeTrigger{9, 5, {2}}}, false});
        QCOMPARE(program.text("triggers"), word("At 9:05 on Mon  a scene that is gone  off\n"));
        for (const Verb &verb : verbs) { // none is only listed
            std::vector<QString> arguments(*verb.argument ? 1 : 0, word("/nowhere"));
            QVERIFY2(program.run(verb.name, arguments).status != ExitStatus::Usage, verb.name);
        }
    }

    void aDryRunSaysWhatWouldMoveAndWhyAndLeavesNoTrace()
    {
        CommandedProgram program;
        InMemoryDesktop &desktop = program.desktop;
        desktop.open(program.editorPID, word("Draft"), {300, 300, 400, 300});
        desktop.open(program.editorPID, word("Draft"), {500, 300, 400, 300});
        desktop.open(program.mailPID, word("Letter"), {2100, 300, 300, 300});
        desktop.open(program.mailPID, word("Old"), {2100, 350, 800, 600});
        QVERIFY(program.run("save").status == ExitStatus::Done);
        desktop.window(program.editor).title = word("Notes and more");
        desktop.window(program.mail).frame = clampedPlace;
        program.panel.onSaveScene();

        const QStringList before = program.traces();
        const QString plan = program.text("restore", {}, true);
        for (const char *line : {
                 "Mail    “Inbox”   900,200 500x400 -> 2000,200 500x400  by title",
                 "Editor  “Notes”   is at 100,100 400x300                by prefix, now “Notes and "
                 "more”",
                 "Editor  “Draft”   is at 300,300 400x300                by order",
             })
            QVERIFY2(plan.contains(word(line)), qPrintable(plan));
        QVERIFY(program.run("apply", {word("Scene 1")}, true).status == ExitStatus::Done);
        QCOMPARE(program.traces(), before);
        QCOMPARE(program.mailFrame(), clampedPlace);

        desktop.quit(program.editorPID);
        QVERIFY(program.text("restore", {}, true)
                    .contains(word("“Notes”   stays away: app not running")));
    }

    void aSceneIsFoundByNameOrIdOrNotAtAll()
    {
        std::vector<SceneRecord> scenes{scene("Work"), scene("Work"), scene("Play"), scene("Play")};
        for (SceneRecord &each : scenes)
            each.id = QUuid::createUuid();
        scenes[1].configID = word("here");
        const auto idOf = [&](int i) {
            return scenes[std::size_t(i)].id.toString(QUuid::WithoutBraces);
        };
        const auto found = [&](const QString &nameOrID, const char *desk = "here") {
            return SceneChoice(scenes, nameOrID, word(desk));
        };
        QCOMPARE(found(word("Work")).scene(), &scenes[1]); // this desk's
        QVERIFY(!found(word("Work"), "elsewhere").scene());
        QCOMPARE(found(idOf(0)).scene(), &scenes[0]);
        QCOMPARE(found(word("work")).reason(), word("there is no scene “work”"));
        const QString twins = found(word("Play")).reason();
        QVERIFY(twins.startsWith(word("there are 2 scenes “Play”")));
        QVERIFY(twins.contains(idOf(2).toUpper()));
        QVERIFY(!found(QString()).scene());

        CommandedProgram program;
        for (const bool dryRun : {false, true})
            QCOMPARE(int(program.run("apply", {word("none")}, dryRun).status),
                     int(ExitStatus::NotFound));
    }

    void whatWasExportedComesBackWholeAndInForce()
    {
        CommandedProgram program;
        AppController &controller = *program.controller;
        program.panel.onSaveScene();
        SceneRecord scene = controller.scenes().allScenes().front();
        scene.hotKey = HotKeyCombo{18, HotKeyCombo::control};
        controller.scenes().update(scene);
        program.prefs->setPlaceNewApps(false);
        controller.rules().set({word("game"), true, false});
        controller.triggers().add({QUuid::createUuid(), scene.id, {TimeTrigger{9, 21, {}}}, true});
        const QString file = program.exported("all.json");
        QCOMPARE(QFile::permissions(file) & ~QFile::Permissions(0x7700), QFile::Permissions());

        controller.scenes().remove(scene.id);
        controller.triggers().remove(controller.triggers().all()[0].id);
        program.prefs->setPlaceNewApps(true);
        controller.forgetDesk(program.watcher->configID());
        program.desktop.window(program.mail).frame = clampedPlace;
        controller.learn();
        program.exported("changed.json");
        const QStringList before = program.traces();
        QVERIFY(program.text("import", {file}, true).startsWith(word("Would replace 1 desk")));
        QCOMPARE(program.traces(), before);
        const CommandReply reply = program.run("import", {file});
        QCOMPARE(reply.error, QString());
        QCOMPARE(program.stateReplaced, 1);
        program.exported("again.json");
        QCOMPARE(program.dir.read(word("again.json")), program.dir.read(word("all.json")));
        QCOMPARE(readFile(reply.result.value(word("backup")).toString()),
                 program.dir.read(word("changed.json")));

        QVERIFY(!program.prefs->placeNewApps());
        program.scheduler.advance(59s);
        QCOMPARE(program.mailFrame(), clampedPlace);
        controller.learn(); // not over what was imported
        QCOMPARE(program.learnedMailFrame(), rightPlace);
        program.scheduler.advance(1s);
        QVERIFY(program.logged("scene applied: Scene 1, 2/2 restored, 0 failed, 0 skipped, 0.00s"));
        program.desktop.window(program.mail).frame = clampedPlace;
        program.platform.keys.press(*scene.hotKey);
        QCOMPARE(program.mailFrame(), rightPlace);
    }

    void anImportThatIsNotUnderstoodChangesNothing()
    {
        const struct {
            const char *find, *replaceBy, *reason;
        } rows[] = {
            {"\"version\": 1", "\"version\": 2", "it was written by a newer version"},
            {"\"version\": 1", "\"version\": 0", "it is damaged (version 0)"},
            {"panorel-state", "song-list", "it is no export of Panorel"},
            {"\"version\": 1\n}\n", "", "it is no export of Panorel, or damaged"},
            {"\"triggers\"", "\"trickers\"", "it is damaged (missing key at state.triggers)"},
            {"\"enabled\": true", "\"enabled\": \"yes\"", "it is damaged (expected"}};
        CommandedProgram program;
        const QString file = program.exported("all.json");
        const QByteArray whole = program.dir.read(word("all.json"));
        for (const auto &[find, replaceBy, reason] : rows) {
            QVERIFY2(whole.contains(find), find);
            program.dir.write(word("all.json"), QByteArray(whole).replace(find, replaceBy));
            const QStringList before = program.traces();
            const CommandReply reply = program.run("import", {file});
            QCOMPARE(int(reply.status), int(ExitStatus::Failed));
            QVERIFY2(reply.error.contains(word(reason)), qPrintable(reply.error));
            QCOMPARE(program.traces(), before);
        }
    }

    void filesThatAreNoneAreRefusedInWords()
    {
        CommandedProgram program;
        const QString nowhere = program.dir.path(word("no/such/folder.json"));
        QVERIFY(program.text("import", {nowhere}).endsWith(word("there is no such file")));
        QVERIFY(program.text("import", {program.dir.path(QString())}).endsWith(word("plain file")));
        QVERIFY(program.text("import", {word("/dev/zero")}).endsWith(word("plain file")));
        QVERIFY(program.text("export", {nowhere}).contains(word("can't be written: ")));
        QVERIFY(program.text("export", {word("/dev/full")}).endsWith(word("plain file")));
        // Without a backup nothing is replaced.
        const QString file = program.exported("all.json");
        program.dir.write(word("backups"), "in the way");
        program.panel.onSaveScene();
        QVERIFY(
            program.text("import", {file}).startsWith(word("nothing was imported, the backup")));
        QCOMPARE(program.controller->scenes().allScenes().size(), 1u);
    }

    void requestsFromElsewhereAreCheckedToo()
    {
        CommandedProgram program;
        for (const char *line : {"", "restore", "[]", "{}", R"({"verb":"restore"})",
                                 R"({"verb":"apply","arguments":[],"dryRun":false})",
                                 R"({"verb":"undo","arguments":[],"dryRun":true})",
                                 R"({"verb":"dance","arguments":[],"dryRun":false})"}) {
            const CommandReply reply = CommandCoding::reply(program.service->answer(word(line)));
            QCOMPARE(int(reply.status), int(ExitStatus::Usage));
            QVERIFY(!reply.error.isEmpty());
        }
        const QString fine = CommandCoding::line(CommandRequest{word("scenes"), {}, false});
        QCOMPARE(int(CommandCoding::reply(program.service->answer(fine)).status), 0);
    }

    void aTitleCanNotActOnTheTerminal()
    {
        CommandedProgram program;
        program.desktop.window(program.mail).title = word("a\x1B[2J\nb\u202Ec");
        program.run("save");
        const QString plan = program.text("restore", {}, true);
        QVERIFY2(plan.contains(word("“a?[2J?b?c”")), qPrintable(plan));
        QCOMPARE(plan.count(u'\n'), 2);
    }

    void theLogIsFollowedAlsoWhereItBeginsAnew()
    {
        TestDataDir dir;
        QByteArray heard;
        LogFollower follower(dir.path(word("app.log")), [&](const auto &lines) { heard += lines; });
        follower.readOn(); // there is none yet
        const std::pair<QByteArray, QByteArray> steps[] = {
            {"one\ntwo\nthr", "one\ntwo\n"}, // whole lines
            {"one\ntwo\nthree\n", "one\ntwo\nthree\n"},
            {"new\n", "one\ntwo\nthree\nnew\n"}};
        for (const auto &[written, expected] : steps) {
            dir.write(word("app.log"), written);
            follower.readOn();
            follower.readOn();
            QCOMPARE(heard, expected);
        }
    }
};

QTEST_GUILESS_MAIN(CommandTests)
#include "CommandTests.moc"
