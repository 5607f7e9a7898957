#include "PanorelCore/JSON/PanorelJSON.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QRegularExpression>

namespace Panorel::PanorelJSON {

QString ISO8601Format::string(Instant instant) const
{
    const auto moment = QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), Qt::UTC);
    return moment.toString(Qt::ISODate);
}

std::optional<Instant> ISO8601Format::date(const QString &text) const
{
    // QDateTime alone would also take a text without a zone, with fractions or without seconds.
    static const QRegularExpression internetDateTime(
        QStringLiteral(R"(\A\d{4}-\d{2}-\d{2}T([01]\d|2[0-3]):\d{2}:\d{2}(Z|[+-]\d{2}:\d{2})\z)"));
    if (!internetDateTime.match(text).hasMatch())
        return {};
    const auto moment = QDateTime::fromString(text, Qt::ISODate);
    if (!moment.isValid())
        return {};
    return Instant(std::chrono::milliseconds(moment.toMSecsSinceEpoch()));
}

const ISO8601Format &iso()
{
    static const ISO8601Format format;
    return format;
}

namespace {

/// A slash occurs inside strings only, so the bytes can be replaced without parsing. Not by
/// QByteArray::replace(), which is slow at finding a single byte.
QByteArray withSlashesEscaped(const QByteArray &json)
{
    QByteArray escaped;
    escaped.reserve(json.size());
    qsizetype from = 0;
    for (qsizetype slash = json.indexOf('/'); slash >= 0; slash = json.indexOf('/', from)) {
        escaped.append(json.constData() + from, slash - from).append("\\/");
        from = slash + 1;
    }
    return escaped.append(json.constData() + from, json.size() - from);
}

} // namespace

QByteArray Encoder::print(const QJsonValue &root)
{
    const auto document =
        root.isArray() ? QJsonDocument(root.toArray()) : QJsonDocument(root.toObject());
    return withSlashesEscaped(document.toJson(QJsonDocument::Indented));
}

QJsonValue Decoder::parse(const QByteArray &json)
{
    QJsonParseError error;
    const auto document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        throw DecodingError(
            QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset));
    if (document.isArray())
        return document.array();
    return document.object();
}

} // namespace Panorel::PanorelJSON
