#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Panorel {

/// The user's settings database. Values are typed; one stored under another type, or not at all,
/// reads as absent. Every write is on disk, or handed to the platform's daemon, when it returns;
/// a write that fails is dropped.
class UserDefaultsPort {
public:
    virtual ~UserDefaultsPort() = default;

    /// Whether anything is stored under the key, of whatever type.
    virtual bool contains(const QString &key) const = 0;

    virtual std::optional<bool> boolean(const QString &key) const = 0;
    virtual std::optional<double> number(const QString &key) const = 0;
    virtual std::optional<QByteArray> data(const QString &key) const = 0;
    virtual std::optional<QString> text(const QString &key) const = 0;

    virtual void setBoolean(const QString &key, bool value) = 0;
    virtual void setNumber(const QString &key, double value) = 0;
    virtual void setData(const QString &key, const QByteArray &value) = 0;
    virtual void setText(const QString &key, const QString &value) = 0;
    virtual void remove(const QString &key) = 0;
};

} // namespace Panorel
