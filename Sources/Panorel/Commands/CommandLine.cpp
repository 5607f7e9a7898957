#include "Panorel/Commands/CommandLine.h"

#include "Panorel/Commands/Verbs.h"

namespace Panorel {

namespace {

bool isToolkitOption(const QString &argument)
{
    return argument.size() > 2 && argument.startsWith(QLatin1Char('-'))
           && argument.at(1) != QLatin1Char('-');
}

struct Words {
    QStringList options;
    QStringList others; ///< the verb and what follows it
};

Words sorted(const QStringList &arguments)
{
    Words words;
    bool optionsAreOver = false;
    for (const QString &argument : arguments) {
        if (argument == QLatin1String("--") && !optionsAreOver)
            optionsAreOver = true;
        else if (!optionsAreOver && argument.size() > 1 && argument.startsWith(QLatin1Char('-')))
            words.options.append(argument);
        else
            words.others.append(argument);
    }
    return words;
}

CommandLine::Mistake mistake(const QString &what)
{
    return {what + QStringLiteral("; see panorel --help")};
}

CommandLine::Parsed parseVerb(const Verb &verb, const Words &words)
{
    const QString name = words.others.front();
    CommandLine::RunCommand command;
    command.request.verb = name;
    for (const QString &option : words.options) {
        if (option == QLatin1String("--json"))
            command.json = true;
        else if (option == QLatin1String("--dry-run") && verb.hasDryRun)
            command.request.dryRun = true;
        else if (option == QLatin1String("--follow") && name == QLatin1String("log"))
            command.follow = true;
        else
            return mistake(QStringLiteral("“%1” has no option %2").arg(name, option));
    }
    const QStringList arguments = words.others.mid(1);
    const QString wanted = QLatin1String(verb.argument);
    if (arguments.size() < (wanted.isEmpty() ? 0 : 1) || arguments.value(0, name).isEmpty())
        return mistake(QStringLiteral("“%1” needs %2").arg(name, wanted));
    if (arguments.size() > (wanted.isEmpty() ? 0 : 1))
        return mistake(QStringLiteral("“%1” can't use “%2”").arg(name, arguments.back()));
    command.request.arguments.assign(arguments.begin(), arguments.end());
    return command;
}

} // namespace

CommandLine::Parsed CommandLine::parse(const QStringList &arguments)
{
    if (arguments.isEmpty() || isToolkitOption(arguments.front()))
        return RunProgram{};
    const Words words = sorted(arguments);
    for (const QString &option : words.options) {
        if (option == QLatin1String("--help") || option == QLatin1String("-h"))
            return ShowHelp{};
        if (option == QLatin1String("--version") || option == QLatin1String("-v"))
            return ShowVersion{};
    }
    if (words.others.isEmpty())
        return mistake(QStringLiteral("there is no option %1").arg(arguments.front()));
    const QString &name = words.others.front();
    const Verb *verb = findVerb(name);
    return verb ? parseVerb(*verb, words)
                : mistake(QStringLiteral("“%1” is no verb of Panorel").arg(name));
}

QString CommandLine::help()
{
    QString text =
        QStringLiteral("Usage: panorel                 start, or open the running one's panel\n"
                       "       panorel VERB [OPTION]   have the running one do something\n"
                       "\nVerbs:\n");
    for (const Verb &verb : verbs) {
        const QString words =
            QLatin1String(verb.name) + QLatin1Char(' ') + QLatin1String(verb.argument);
        text += QStringLiteral("  %1 %2\n").arg(words, -16).arg(QLatin1String(verb.summary));
    }
    text +=
        QStringLiteral("\nOptions:\n"
                       "  --json      print the result for programs to read\n"
                       "  --dry-run   say what restore, apply or import would do, and do nothing\n"
                       "  --follow    with log: go on until interrupted\n"
                       "  --help      print this\n"
                       "  --version   print the version\n"
                       "\nExit status: 0 done, 1 failed, 2 wrong usage, 3 Panorel is not running,\n"
                       "4 no such scene or more than one, 5 the running one does not answer.\n");
    return text;
}

} // namespace Panorel
