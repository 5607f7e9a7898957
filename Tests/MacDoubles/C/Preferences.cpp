#include "MacDoubles/C/CfObjects.h"

using namespace Panorel;
using namespace Panorel::MacDoubles;

extern "C" {

const CFStringRef kCFPreferencesCurrentApplication = CFSTR("kCFPreferencesCurrentApplication");

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application)
{
    const InMemoryPlatform &platform = desktop().platform;
    if (application == kCFPreferencesCurrentApplication) {
        const auto stored = platform.defaults.values.find(textOf(key));
        return stored == platform.defaults.values.end() ? nullptr : toCf(stored->second);
    }
    return toCf(desktop().preferences.value(textOf(application) + u' ' + textOf(key)));
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef)
{
    desktop().isUnsynchronized = true;
    auto &values = desktop().platform.defaults.values;
    if (value)
        values[textOf(key)] = objectOf(value).value;
    else
        values.erase(textOf(key));
}

Boolean CFPreferencesAppSynchronize(CFStringRef)
{
    desktop().isUnsynchronized = false;
    return true;
}

} // extern "C"
