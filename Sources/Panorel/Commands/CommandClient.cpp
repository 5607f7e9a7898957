#include "Panorel/Commands/CommandClient.h"

#include "Panorel/Commands/CommandText.h"
#include "Panorel/Commands/LogFollower.h"
#include "Panorel/Commands/OfflineCommands.h"
#include "Panorel/Commands/TextTable.h"
#include "Panorel/SingleInstance.h"
#include "PanorelCore/Files/Paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QThread>

#include <cstdio>

namespace Panorel {

namespace {

using namespace std::chrono_literals;

/// Longer than any restore may take.
constexpr std::chrono::milliseconds patience = 15s;
constexpr unsigned long followMilliseconds = 250;

bool print(const QByteArray &text)
{
    return std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout)
               == std::size_t(text.size())
           && std::fflush(stdout) == 0;
}

int fail(ExitStatus status, const QString &reason)
{
    std::fprintf(stderr, "panorel: %s\n", qPrintable(fitForTerminal(reason)));
    return int(status);
}

QByteArray asObject(const QString &line)
{
    const qsizetype end = line.startsWith(QLatin1Char('[')) ? line.indexOf(QLatin1Char(']')) : -1;
    const QJsonObject object{{QStringLiteral("time"), end > 0 ? line.mid(1, end - 1) : QString()},
                             {QStringLiteral("message"), end > 0 ? line.mid(end + 2) : line}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

/// With the titles of windows that a terminal must not act on; as JSON an object for each line.
QByteArray shown(const QByteArray &lines, bool json)
{
    QByteArray text;
    for (const QByteArray &bytes : lines.chopped(1).split('\n')) {
        const QString line = QString::fromUtf8(bytes);
        text += (json ? asObject(line) : fitForTerminal(line).toLocal8Bit()) + '\n';
    }
    return text;
}

int showLog(bool json, bool follow)
{
    const QString path = QDir(Paths::dataDir()).filePath(QStringLiteral("app.log"));
    if (!follow && !QFileInfo::exists(path))
        return fail(ExitStatus::Failed, QStringLiteral("there is no log yet at “%1”").arg(path));
    bool isHeard = true;
    LogFollower log(
        path, [&](const QByteArray &lines) { isHeard = isHeard && print(shown(lines, json)); });
    log.readOn();
    while (follow && isHeard) {
        QThread::msleep(followMilliseconds);
        log.readOn();
    }
    return int(ExitStatus::Done);
}

CommandReply carryOut(const CommandRequest &request)
{
    const auto answer = SingleInstance::ask(CommandCoding::line(request), patience);
    if (!answer.isRunning)
        return runOffline(request);
    if (!answer.reply)
        return CommandReply::failure(ExitStatus::NoAnswer,
                                     QStringLiteral("Panorel is running, but does not answer"));
    try {
        return CommandCoding::reply(*answer.reply);
    } catch (const DecodingError &) {
        return CommandReply::failure(
            ExitStatus::NoAnswer,
            QStringLiteral("the running Panorel is of another version; end it and start it anew"));
    }
}

int runCommand(CommandLine::RunCommand command)
{
    CommandRequest &request = command.request;
    if (request.verb == QLatin1String("log"))
        return showLog(command.json, command.follow);
    if (request.verb == QLatin1String("export") || request.verb == QLatin1String("import"))
        request.arguments.front() = QFileInfo(request.arguments.front()).absoluteFilePath();
    const CommandReply reply = carryOut(request);
    bool isPrinted = true;
    if (command.json && !reply.result.isEmpty())
        isPrinted = print(QJsonDocument(reply.result).toJson(QJsonDocument::Indented));
    else if (reply.status == ExitStatus::Done)
        isPrinted = print(textOf(request, reply.result).toLocal8Bit());
    if (reply.status != ExitStatus::Done)
        return fail(reply.status, reply.error);
    return int(isPrinted ? ExitStatus::Done : ExitStatus::Failed);
}

} // namespace

std::optional<int> runCommandLine(const QStringList &arguments)
{
    const auto parsed = CommandLine::parse(arguments);
    if (std::holds_alternative<CommandLine::RunProgram>(parsed))
        return {};
    if (std::holds_alternative<CommandLine::ShowHelp>(parsed))
        return print(CommandLine::help().toUtf8()) ? 0 : 1;
    if (std::holds_alternative<CommandLine::ShowVersion>(parsed))
        return print("Panorel " + QCoreApplication::applicationVersion().toUtf8() + "\n") ? 0 : 1;
    if (const auto *mistake = std::get_if<CommandLine::Mistake>(&parsed))
        return fail(ExitStatus::Usage, mistake->message);
    return runCommand(std::get<CommandLine::RunCommand>(parsed));
}

} // namespace Panorel
