#include "MacDoubles/C/CfObjects.h"

#include <set>

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

std::set<QString> written; ///< and not yet handed to the daemon
const QString ownDomain = QStringLiteral("org.panorel.Panorel");

bool isOwn(CFStringRef application)
{
    return application == kCFPreferencesCurrentApplication || textOf(application) == ownDomain;
}

} // namespace

QStringList Panorel::MacDoubles::takeUnsynchronized()
{
    const std::set<QString> keys = std::exchange(written, {});
    return QStringList(keys.begin(), keys.end());
}

extern "C" {

const CFStringRef kCFPreferencesCurrentApplication = CFSTR("kCFPreferencesCurrentApplication");

CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef application)
{
    const InMemoryPlatform &platform = desktop().platform;
    if (isOwn(application)) {
        const auto stored = platform.defaults.values.find(textOf(key));
        return stored == platform.defaults.values.end() ? nullptr : toCf(stored->second);
    }
    const auto stored = platform.preferences.find(textOf(application) + u' ' + textOf(key));
    if (stored == platform.preferences.end())
        return nullptr;
    return toCf(std::visit([](const auto &value) { return QVariant(value); }, stored->second));
}

void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef application)
{
    if (!isOwn(application))
        addFault(QStringLiteral("another program's preferences were written: ")
                 + textOf(application));
    written.insert(textOf(key));
    auto &values = desktop().platform.defaults.values;
    if (value)
        values[textOf(key)] = fromCf(value);
    else
        values.erase(textOf(key));
}

Boolean CFPreferencesAppSynchronize(CFStringRef application)
{
    if (isOwn(application))
        written.clear();
    return true;
}

} // extern "C"
