#pragma once

#include <QString>

#include <optional>
#include <variant>

namespace Panorel {

/// A setting that belongs to the system or to another program. A value of any other type reads
/// as text.
using PreferenceValue = std::variant<bool, double, QString>;

/// The system's own settings, as far as restoring depends on them.
class SystemPreferencesPort {
public:
    virtual ~SystemPreferencesPort() = default;

    /// The current user's value, read afresh; absent where none is set.
    virtual std::optional<PreferenceValue> value(const QString &domain, const QString &key) = 0;

    /// Opens the page of the system's settings where displays and Spaces are set up. A failure is
    /// dropped.
    virtual void openDesktopSettings() = 0;
};

} // namespace Panorel
