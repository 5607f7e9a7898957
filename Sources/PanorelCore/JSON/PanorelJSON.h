#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelCore/JSON/CodingErrors.h"
#include "PanorelCore/JSON/ValueCoding.h"

#include <QByteArray>

#include <optional>

/// The one JSON dialect of all files: indented, keys sorted, dates as ISO 8601 text in UTC,
/// slashes escaped. A record takes part by a Fields table (see RecordCoding.h).
namespace Panorel::PanorelJSON {

/// The text form of a moment, for example 2024-05-01T09:30:00Z.
class ISO8601Format {
public:
    /// Empty for a year outside 0 to 9999, which has no such form. Fractions are dropped.
    QString string(Instant instant) const;

    /// Absent unless the text is a full date and time with "Z" or an offset, without fractions.
    std::optional<Instant> date(const QString &text) const;
};

const ISO8601Format &iso();

class Encoder {
public:
    /// Throws EncodingError.
    template <typename Value> QByteArray encode(const Value &value) const
    {
        return print(ValueCoding::write(value));
    }

private:
    static QByteArray print(const QJsonValue &root);
};

class Decoder {
public:
    /// Throws DecodingError at the first fault; there is no partial result.
    template <typename Value> Value decode(const QByteArray &json) const
    {
        Value value{};
        ValueCoding::read(parse(json), value, CodingPath());
        return value;
    }

private:
    static QJsonValue parse(const QByteArray &json);
};

inline Encoder encoder()
{
    return {};
}

inline Decoder decoder()
{
    return {};
}

} // namespace Panorel::PanorelJSON
