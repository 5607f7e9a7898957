#include "Panorel/Commands/Command.h"

#include "PanorelCore/JSON/PanorelJSON.h"

#include <QJsonDocument>

namespace Panorel {

namespace {

QString compact(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QJsonObject parse(const QString &line)
{
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(line.toUtf8(), &error);
    if (!document.isObject())
        throw DecodingError(QStringLiteral("no object: ") + error.errorString());
    return document.object();
}

} // namespace

QString CommandCoding::line(const CommandRequest &request)
{
    return compact(ValueCoding::write(request).toObject());
}

QString CommandCoding::line(const CommandReply &reply)
{
    return compact({{QStringLiteral("status"), int(reply.status)},
                    {QStringLiteral("error"), reply.error},
                    {QStringLiteral("result"), reply.result}});
}

CommandRequest CommandCoding::request(const QString &line)
{
    CommandRequest request;
    ValueCoding::read(parse(line), request, CodingPath());
    return request;
}

CommandReply CommandCoding::reply(const QString &line)
{
    const QJsonObject object = parse(line);
    const int status = object.value(QStringLiteral("status")).toInt(-1);
    if (status < int(ExitStatus::Done) || status > int(ExitStatus::NoAnswer))
        throw DecodingError(QStringLiteral("no known status"), QStringLiteral("status"));
    return {ExitStatus(status), object.value(QStringLiteral("error")).toString(),
            object.value(QStringLiteral("result")).toObject()};
}

} // namespace Panorel
