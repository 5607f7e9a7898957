#include "Panorel/Commands/CommandLine.h"
#include "Panorel/Commands/Verbs.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "Support/TestDataDir.h"
#include "Support/TestHome.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTest>

namespace Panorel {

namespace {

const QString linuxFiles = QStringLiteral(PANOREL_SOURCES "/Packaging/linux/");

QString text(const QString &path)
{
    return QString::fromUtf8(readFile(path));
}

/// What the expression captures, wherever it is found.
QStringList captured(const QString &text, const char *expression)
{
    const QRegularExpression form(QString::fromUtf8(expression),
                                  QRegularExpression::MultilineOption);
    QStringList found;
    for (auto match = form.globalMatch(text); match.hasNext();)
        found << match.next().captured(1);
    return found;
}

QStringList sorted(QStringList list)
{
    list.removeDuplicates();
    list.sort();
    return list;
}

bool isRun(const QStringList &arguments)
{
    return std::holds_alternative<CommandLine::RunCommand>(CommandLine::parse(arguments));
}

QStringList verbNames()
{
    QStringList names;
    for (const Verb &verb : verbs)
        names << QLatin1String(verb.name);
    return names;
}

/// Those of the help that the verb takes.
QStringList optionsOf(const Verb &verb)
{
    QStringList options;
    for (const QString &option : captured(CommandLine::help(), "(--[a-z-]+)")) {
        QStringList words{QLatin1String(verb.name), option};
        if (*verb.argument)
            words << QStringLiteral("x");
        if (isRun(words))
            options << option;
    }
    return sorted(options);
}

const QStringList generalOptions{QStringLiteral("--help"), QStringLiteral("--version"),
                                 QStringLiteral("-h"), QStringLiteral("-v")};

/// A program's output; fatal where it can't be run or fails.
QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitCode() != 0)
        qFatal("%s: %s%s", qPrintable(program), qPrintable(process.errorString()),
               process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput());
}

const QStringList shells{QStringLiteral("bash"), QStringLiteral("fish"), QStringLiteral("zsh")};

/// For each line what the shell offers at its end, sorted.
QList<QStringList> offers(const QString &shell, const QStringList &lines)
{
    const QString folder = linuxFiles + QStringLiteral("completions");
    static const QMap<QString, QStringList> commands = {
        {QStringLiteral("bash"),
         {QStringLiteral("--norc"), QStringLiteral("-c"),
          QStringLiteral(
              "source $0/panorel.bash; for line; do IFS=' ' read -ra COMP_WORDS <<<$line; "
              "[[ $line != *' ' ]] || COMP_WORDS+=(''); "
              "COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _panorel; "
              "printf '%s\\n' \"${COMPREPLY[@]}\" ''; done")}},
        {QStringLiteral("fish"),
         {QStringLiteral("--no-config"), QStringLiteral("-c"),
          QStringLiteral("source $argv[1]/panorel.fish; for line in $argv[2..]; "
                         "complete -C $line | string replace -r '\\t.*' ''; echo; end")}},
        {QStringLiteral("zsh"),
         {QStringLiteral("-f"), QStringLiteral(PANOREL_SOURCES "/Tests/Packaging/complete.zsh")}},
    };
    const QString output = outputOf(shell, commands.value(shell) + QStringList{folder} + lines);
    QList<QStringList> offered;
    QStringList answer;
    for (QString word : output.split(u'\n')) {
        if (word.isEmpty()) {
            offered << sorted(std::exchange(answer, {}));
        } else {
            answer << word.remove(u'\\');
        }
    }
    return offered;
}

} // namespace

/// What is installed beside the program says of it what is true.
class LinuxPackageTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("PATH", PANOREL_PROGRAM_FOLDER ":" + qgetenv("PATH"));
        qputenv("LC_ALL", "C.UTF-8");
        qputenv("XDG_RUNTIME_DIR", m_home.path().toUtf8());
        writeFile(m_home.path(QStringLiteral("backup.json")), "{}");
        QDir::setCurrent(m_home.path());
    }

    void everyShellOffersExactlyWhatThereIs()
    {
        QStringList lines{QStringLiteral("panorel "), QStringLiteral("panorel --json "),
                          QStringLiteral("panorel -")};
        QList<QStringList> expected{sorted(verbNames()), sorted(verbNames()), generalOptions};
        for (const Verb &verb : verbs) {
            lines << QStringLiteral("panorel %1 -").arg(QLatin1String(verb.name));
            expected << optionsOf(verb);
        }
        lines << QStringLiteral("panorel import ba") << QStringLiteral("panorel import x ba");
        expected << QStringList{QStringLiteral("backup.json")} << QStringList{}; // only one
        for (const QString &shell : shells) {
            const auto offered = offers(shell, lines);
            for (qsizetype i = 0; i < lines.size(); ++i) {
                const QString line = shell + QStringLiteral(": ") + lines[i];
                QVERIFY2(offered.value(i) == expected[i],
                         qPrintable(line + offered.value(i).join(u' ')));
            }
        }
    }

    void everyShellOffersTheScenes()
    {
        TestDataDir data;
        SceneRecord scene;
        scene.id = QUuid::createUuid();
        scene.name = QStringLiteral("Größe \"x\" $HOME");
        SceneStore(data.log, data.clock).add(scene);
        for (const QString &shell : shells) {
            const auto offered = offers(
                shell, {QStringLiteral("panorel apply "), QStringLiteral("panorel apply x ")});
            QVERIFY2(offered[0].contains(scene.name), qPrintable(offered[0].join(u'|')));
            QVERIFY2(!offered[1].contains(scene.name), qPrintable(shell));
        }
    }

    void theManualHasEveryVerbWithItsOptions()
    {
        const QString page = text(linuxFiles + QStringLiteral("panorel.1.in")).remove(u'\\');
        for (const Verb &verb : verbs) {
            const QByteArray form = QByteArray("^\\.TP\n\\.BR ") + verb.name + " \" (.*)$";
            QString line = captured(page, form).value(0);
            QVERIFY2(sorted(captured(line, "(--[a-z-]+)")) == optionsOf(verb), verb.name);
            line.remove(QStringLiteral("fI")).remove(QStringLiteral("fP"));
            QCOMPARE(captured(line, "^([A-Z|]+)").value(0), QLatin1String(verb.argument));
        }
    }

    void theDesktopFileOffersActionsThatAreVerbs()
    {
        const QString path = linuxFiles + QStringLiteral("org.panorel.Panorel.desktop");
        const QStringList actions = captured(text(path), "^Exec=panorel (.+)$");
        QCOMPARE(captured(text(path), "^\\[Desktop Action (.*)\\]$"), actions);
        for (const QString &action : actions)
            QVERIFY2(isRun({action}), qPrintable(action));
        outputOf(QStringLiteral("desktop-file-validate"), {path});
    }

    void theVersionIsThatOfTheProgram()
    {
        const QString version = QStringLiteral(PANOREL_VERSION);
        const QString metainfo = linuxFiles + QStringLiteral("org.panorel.Panorel.metainfo.xml");
        QCOMPARE(captured(text(metainfo), "<release version=\"([^\"]*)\"").value(0), version);
        const QString changes = text(linuxFiles + QStringLiteral("debian/changelog"));
        QCOMPARE(captured(changes, "^panorel \\((.*)-0panorel1\\)").value(0), version);
        outputOf(QStringLiteral("appstreamcli"),
                 {QStringLiteral("validate"), QStringLiteral("--no-net"), metainfo});
    }

private:
    TestHome m_home;
};

} // namespace Panorel

QTEST_GUILESS_MAIN(Panorel::LinuxPackageTests)
#include "LinuxPackageTests.moc"
