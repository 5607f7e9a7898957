#pragma once

#include "PanorelCore/JSON/ValueCoding.h"

#include <QJsonObject>
#include <QString>

#include <vector>

namespace Panorel {

/// The exit status of the command line. The numbers are documented for scripts and never change.
enum class ExitStatus {
    Done = 0,
    Failed = 1,     ///< it could not be done
    Usage = 2,      ///< no such verb or option, or an argument too many or too few
    NotRunning = 3, ///< it needs the running program, and there is none
    NotFound = 4,   ///< no scene is meant, or more than one
    NoAnswer = 5,   ///< the running program does not answer
};

/// One verb with what belongs to it, on its way to whoever carries it out.
struct CommandRequest {
    QString verb;
    std::vector<QString> arguments; ///< a path is absolute
    bool dryRun = false;            ///< say what would be done, and do nothing

    bool operator==(const CommandRequest &) const = default;
};

template <> struct Fields<CommandRequest> {
    using R = CommandRequest;
    static constexpr auto table = std::make_tuple(
        Field{"verb", &R::verb}, Field{"arguments", &R::arguments}, Field{"dryRun", &R::dryRun});
};

/// What came of it: a result, or the reason why there is none in a line for the user.
struct CommandReply {
    ExitStatus status = ExitStatus::Done;
    QString error;
    QJsonObject result;

    static CommandReply failure(ExitStatus status, const QString &error)
    {
        return {status, error, {}};
    }
    static CommandReply success(const QJsonObject &result)
    {
        return {ExitStatus::Done, {}, result};
    }
};

/// As one line without a line feed. Reading throws DecodingError.
namespace CommandCoding {
QString line(const CommandRequest &request);
QString line(const CommandReply &reply);
CommandRequest request(const QString &line);
CommandReply reply(const QString &line);
} // namespace CommandCoding

} // namespace Panorel
