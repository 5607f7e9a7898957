#include "PanorelMac/Settings/Preferences.h"

#include "PanorelMac/Support/CfText.h"
#include "PanorelMac/Support/CfValues.h"

namespace Panorel::Mac {

std::optional<PreferenceValue> preferenceValue(const QString &domain, const QString &key)
{
    const auto application = toCfString(domain);
    // What another program has written meanwhile is only seen after this.
    CFPreferencesAppSynchronize(application.get());
    const auto value = CfRef<CFTypeRef>::adopt(
        CFPreferencesCopyAppValue(toCfString(key).get(), application.get()));
    if (!value)
        return {};
    if (const auto boolean = toBoolean(value.get()))
        return *boolean;
    if (const auto number = toDouble(value.get()))
        return *number;
    const auto string = cfCast<CFStringRef>(value.get());
    return string ? toQString(string) : QString();
}

} // namespace Panorel::Mac
