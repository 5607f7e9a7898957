#pragma once

#include "PanorelPorts/UserDefaultsPort.h"

#include <QSettings>

namespace Panorel::X11 {

/// The settings in an INI file, "Panorel/Panorel.ini" in the user's configuration folder unless
/// told otherwise. Only its user can read it. INI text has no types: a value is of a type when it
/// reads as that type and as nothing else would be written. Hand-edited values are welcome.
class IniUserDefaults final : public UserDefaultsPort {
public:
    IniUserDefaults();
    explicit IniUserDefaults(const QString &path);

    bool contains(const QString &key) const override;
    std::optional<bool> boolean(const QString &key) const override;
    std::optional<double> number(const QString &key) const override;
    std::optional<QByteArray> data(const QString &key) const override;

    void setBoolean(const QString &key, bool value) override;
    /// One that is not finite is stored and reads as absent.
    void setNumber(const QString &key, double value) override;
    void setData(const QString &key, const QByteArray &value) override;
    void remove(const QString &key) override;

private:
    void writeThrough();

    QSettings m_settings;
};

} // namespace Panorel::X11
