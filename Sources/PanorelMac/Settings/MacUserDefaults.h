#pragma once

#include "PanorelPorts/UserDefaultsPort.h"

namespace Panorel::Mac {

/// The standard database of the running application: what the user's `defaults` command shows
/// under the bundle identifier. Booleans, numbers, data and text are its own types; a number is no
/// boolean, nor the other way round.
class MacUserDefaults final : public UserDefaultsPort {
public:
    bool contains(const QString &key) const override;
    std::optional<bool> boolean(const QString &key) const override;
    std::optional<double> number(const QString &key) const override; ///< absent unless finite
    std::optional<QByteArray> data(const QString &key) const override;
    std::optional<QString> text(const QString &key) const override;

    void setBoolean(const QString &key, bool value) override;
    void setNumber(const QString &key, double value) override;
    void setData(const QString &key, const QByteArray &value) override;
    void setText(const QString &key, const QString &value) override;
    void remove(const QString &key) override;
};

} // namespace Panorel::Mac
