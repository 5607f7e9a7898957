#pragma once

#include "PanorelPorts/UserDefaultsPort.h"

#include <QSettings>

namespace Panorel {
class AppLog;
class Clock;
} // namespace Panorel

namespace Panorel::X11 {

/// The settings in an INI file, "Panorel/Panorel.ini" in the user's configuration folder unless
/// told otherwise. Only its user can read it. INI text has no types: a value is of a type when it
/// reads as that type and as nothing else would be written. Hand-edited values are welcome. A file
/// that is no INI text or holds values in QDataStream's form is moved aside as
/// "Panorel.ini.corrupt-SECONDS" before it is written over.
/// That, and the first write that fails, is logged.
class IniUserDefaults final : public UserDefaultsPort {
public:
    /// The log and the clock outlive it.
    IniUserDefaults(AppLog &log, const Clock &clock);
    IniUserDefaults(const QString &path, AppLog &log, const Clock &clock);

    bool contains(const QString &key) const override;
    std::optional<bool> boolean(const QString &key) const override;
    std::optional<double> number(const QString &key) const override;
    std::optional<QByteArray> data(const QString &key) const override;
    std::optional<QString> text(const QString &key) const override;

    void setBoolean(const QString &key, bool value) override;
    /// One that is not finite is stored and reads as absent.
    void setNumber(const QString &key, double value) override;
    void setData(const QString &key, const QByteArray &value) override;
    void setText(const QString &key, const QString &value) override;
    void remove(const QString &key) override;

private:
    void writeThrough();

    AppLog &m_log;
    QSettings m_settings;
    bool m_loggedFailure = false;
};

} // namespace Panorel::X11
