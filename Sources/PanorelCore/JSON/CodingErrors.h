#pragma once

#include <QString>

#include <stdexcept>

namespace Panorel {

/// A document that can't be read as the record it should hold.
class DecodingError : public std::runtime_error {
public:
    /// `path` leads to the offending value, for example "layouts[0].windows[2].frame"; it is
    /// empty where the fault is not at one key.
    explicit DecodingError(const QString &message, const QString &path = {});

    const QString &message() const { return m_message; }
    const QString &path() const { return m_path; }

    /// Message and path in one line, for the log.
    QString description() const;

private:
    QString m_message;
    QString m_path;
};

/// A value that has no JSON form: a number that is not finite, a date beyond the calendar.
class EncodingError : public std::runtime_error {
public:
    explicit EncodingError(const QString &message);

    QString description() const { return QString::fromUtf8(what()); }
};

} // namespace Panorel
