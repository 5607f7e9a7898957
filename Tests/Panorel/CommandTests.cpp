#include "Panorel/Commands/CommandLine.h"
#include "Panorel/Commands/CommandService.h"
#include "Panorel/Commands/CommandText.h"
#include "Panorel/Commands/LogFollower.h"
#include "Panorel/Commands/SceneChoice.h"
#include "Panorel/InMemoryProgram.h"
#include "Panorel/Records.h"
#include "Support/TestHome.h"

#include <QJsonDocument>
#include <QTest>

using namespace Panorel;

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

} // namespace

class CommandTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatIsTypedIsUnderstoodOrRefused()
    {
        const auto parsed = [](const char *typed) {
            return CommandLine::parse(word(typed).split(u' ', Qt::SkipEmptyParts));
        };
        QVERIFY(std::holds_alternative<CommandLine::ShowHelp>(parsed("restore -h")));
        const auto restore = std::get<CommandLine::RunCommand>(parsed("restore --json --dry-run"));
        QVERIFY(restore.json && restore.request.dryRun && !restore.follow);
        const auto apply = std::get<CommandLine::RunCommand>(parsed("apply -- --dry-run"));
        QVERIFY(!apply.request.dryRun);
        QCOMPARE(apply.request.arguments, std::vector{word("--dry-run")});
        const std::pair<const char *, const char *> mistakes[] = {
            {"undo --dry-run", "“undo” has no option --dry-run; see panorel --help"},
            {"apply", "“apply” needs NAME|ID; see panorel --help"},
            {"export a b", "“export” can't use “b”; see panorel --help"}};
        for (const auto &[typed, message] : mistakes)
            QCOMPARE(std::get<CommandLine::Mistake>(parsed(typed)).message, word(message));
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
        QCOMPARE(program.text("stash"), word("Desk brought back\n"));

        program.panel.onSaveScene();
        program.desktop.window(program.mail).frame = rightPlace;
        QCOMPARE(program.text("apply", {word("Scene 1")}),
                 word("Applied “Scene 1”: 2 of 2 windows\n"));
        QCOMPARE(program.mailFrame(), clampedPlace);
    }

    void aDryRunSaysWhatWouldMoveAndWhyAndLeavesNoTrace()
    {
        CommandedProgram program;
        InMemoryDesktop &desktop = program.desktop;
        desktop.open(program.editorPID, word("Draft"), {300, 300, 400, 300});
        desktop.open(program.editorPID, word("Draft"), {500, 300, 400, 300});
        QVERIFY(program.run("save").status == ExitStatus::Done);
        desktop.window(program.editor).title = word("Notes and more");
        desktop.window(program.mail).frame = clampedPlace;
        desktop.window(program.mail).title =
            word("a\x1B[2J\nb\u202Ec"); // may not act on a terminal
        program.panel.onSaveScene();

        const QStringList before = program.traces();
        const QString plan = program.text("restore", {}, true);
        for (const char *line : {
                 "Mail    “Inbox”  900,200 500x400 -> 2000,200 500x400  by size, now “a?[2J?b?c”",
                 "Editor  “Notes”  is at 100,100 400x300                by prefix, now “Notes and "
                 "more”",
                 "Editor  “Draft”  is at 300,300 400x300                by order",
             })
            QVERIFY2(plan.contains(word(line)), qPrintable(plan));
        QVERIFY(program.run("apply", {word("Scene 1")}, true).status == ExitStatus::Done);
        QCOMPARE(program.traces(), before);
        QCOMPARE(program.mailFrame(), clampedPlace);
    }

    void aSceneIsFoundByNameOrIdOrNotAtAll()
    {
        std::vector<SceneRecord> scenes{scene("Work"), scene("Work"), scene("Play"), scene("Play")};
        for (SceneRecord &each : scenes)
            each.id = QUuid::createUuid();
        scenes[1].configID = word("here");
        const auto found = [&](const QString &nameOrID, const char *desk = "here") {
            return SceneChoice(scenes, nameOrID, word(desk));
        };
        QCOMPARE(found(word("Work")).scene(), &scenes[1]); // this desk's
        QVERIFY(!found(word("Work"), "elsewhere").scene());
        QCOMPARE(found(scenes[0].id.toString(QUuid::WithoutBraces)).scene(), &scenes[0]);
        QCOMPARE(found(word("work")).reason(), word("there is no scene “work”"));
        QVERIFY(found(word("Play")).reason().startsWith(word("there are 2 scenes “Play”")));
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

        controller.learn(); // not over what was imported
        QCOMPARE(program.learnedMailFrame(), rightPlace);
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
        QVERIFY(program.text("import", {word("/dev/zero")}).endsWith(word("plain file")));
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
        for (const char *line : {"restore", "[]", R"({"verb":"restore"})",
                                 R"({"verb":"undo","arguments":[],"dryRun":true})"}) {
            const CommandReply reply = CommandCoding::reply(program.service->answer(word(line)));
            QCOMPARE(int(reply.status), int(ExitStatus::Usage));
        }
    }

    void theLogIsFollowedAlsoWhereItBeginsAnew()
    {
        TestDataDir dir;
        QByteArray heard;
        LogFollower follower(dir.path(word("app.log")), [&](const auto &lines) { heard += lines; });
        follower.readOn(); // there is none yet
        for (const QByteArray written : {"one\ntwo\nthr", "one\ntwo\nthree\n", "new\n"}) {
            dir.write(word("app.log"), written);
            follower.readOn();
            follower.readOn();
        }
        QCOMPARE(heard, QByteArray("one\ntwo\nthree\nnew\n"));
    }
};

QTEST_GUILESS_MAIN(CommandTests)
#include "CommandTests.moc"
