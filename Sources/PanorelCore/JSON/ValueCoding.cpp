#include "PanorelCore/JSON/ValueCoding.h"

#include "PanorelCore/JSON/FrameCodec.h"
#include "PanorelCore/JSON/PanorelJSON.h"

#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace Panorel {

QString CodingPath::text() const
{
    if (!m_parent)
        return {};
    const QString prefix = m_parent->text();
    if (m_key.isNull())
        return prefix + QStringLiteral("[%1]").arg(m_index);
    return prefix.isEmpty() ? m_key.toString() : prefix + QLatin1Char('.') + m_key.toString();
}

} // namespace Panorel

namespace Panorel::ValueCoding {

namespace {

[[noreturn]] void mismatch(const char *expected, const CodingPath &path)
{
    throw DecodingError(QStringLiteral("expected %1").arg(QLatin1String(expected)), path.text());
}

/// Absent for a fraction or a number beyond 64 bits.
std::optional<qint64> wholeNumber(const QJsonValue &json)
{
    if (!json.isDouble())
        return {};
    const qint64 value = json.toInteger(0);
    if (value == 0 && json.toInteger(1) == 1)
        return {}; // both calls gave their default
    return value;
}

} // namespace

QJsonValue write(bool value)
{
    return value;
}

QJsonValue write(qint64 value)
{
    return value;
}

QJsonValue write(quint32 value)
{
    return qint64(value);
}

QJsonValue write(double value)
{
    if (!std::isfinite(value))
        throw EncodingError(QStringLiteral("a number is not finite"));
    return value;
}

QJsonValue write(const QString &value)
{
    return value;
}

QJsonValue write(const QUuid &value)
{
    return value.toString(QUuid::WithoutBraces).toUpper();
}

QJsonValue write(Instant value)
{
    const QString text = PanorelJSON::iso().string(value);
    if (text.isEmpty())
        throw EncodingError(QStringLiteral("a date is beyond the year 9999"));
    return text;
}

QJsonValue write(const Rect &value)
{
    return write(FrameCodec::encode(value));
}

QJsonValue write(const std::map<QString, QString> &value)
{
    QJsonObject object;
    for (const auto &[key, text] : value)
        object.insert(key, text);
    return object;
}

void read(const QJsonValue &json, bool &value, const CodingPath &path)
{
    if (!json.isBool())
        mismatch("true or false", path);
    value = json.toBool();
}

void read(const QJsonValue &json, qint64 &value, const CodingPath &path)
{
    const auto number = wholeNumber(json);
    if (!number)
        mismatch("an integer", path);
    value = *number;
}

void read(const QJsonValue &json, quint32 &value, const CodingPath &path)
{
    const auto number = wholeNumber(json);
    if (!number || *number < 0 || *number > std::numeric_limits<quint32>::max())
        mismatch("an unsigned 32-bit integer", path);
    value = quint32(*number);
}

void read(const QJsonValue &json, double &value, const CodingPath &path)
{
    if (!json.isDouble() || !std::isfinite(json.toDouble()))
        mismatch("a number", path);
    value = json.toDouble();
}

void read(const QJsonValue &json, QString &value, const CodingPath &path)
{
    if (!json.isString())
        mismatch("a string", path);
    value = json.toString();
}

void read(const QJsonValue &json, QUuid &value, const CodingPath &path)
{
    // QUuid also takes braces and other forms, and gives the null UUID, itself valid, for garbage.
    static const QRegularExpression canonical(
        QStringLiteral(R"(\A[0-9A-Fa-f]{8}(-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\z)"));
    QString text;
    read(json, text, path);
    if (!canonical.match(text).hasMatch())
        mismatch("a UUID", path);
    value = QUuid::fromString(text);
}

void read(const QJsonValue &json, Instant &value, const CodingPath &path)
{
    QString text;
    read(json, text, path);
    const auto date = PanorelJSON::iso().date(text);
    if (!date)
        throw DecodingError(QStringLiteral("bad date ") + text, path.text());
    value = *date;
}

void read(const QJsonValue &json, Rect &value, const CodingPath &path)
{
    std::vector<std::vector<double>> pairs;
    read(json, pairs, path);
    value = FrameCodec::decode(pairs);
}

void read(const QJsonValue &json, std::map<QString, QString> &value, const CodingPath &path)
{
    const QJsonObject object = requireObject(json, path);
    value.clear();
    for (auto entry = object.constBegin(); entry != object.constEnd(); ++entry)
        read(entry.value(), value[entry.key()], CodingPath(path, entry.key()));
}

QJsonArray requireArray(const QJsonValue &json, const CodingPath &path)
{
    if (!json.isArray())
        mismatch("an array", path);
    return json.toArray();
}

QJsonObject requireObject(const QJsonValue &json, const CodingPath &path)
{
    if (!json.isObject())
        mismatch("an object", path);
    return json.toObject();
}

} // namespace Panorel::ValueCoding
