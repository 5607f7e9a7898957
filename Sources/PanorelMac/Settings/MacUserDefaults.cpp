#include "PanorelMac/Settings/MacUserDefaults.h"

#include "PanorelMac/Support/CfText.h"
#include "PanorelMac/Support/CfValues.h"

namespace Panorel::Mac {

namespace {

CfRef<CFTypeRef> copy(const QString &key)
{
    return CfRef<CFTypeRef>::adopt(
        CFPreferencesCopyAppValue(toCfString(key).get(), kCFPreferencesCurrentApplication));
}

/// A null value removes the key.
void write(const QString &key, CFTypeRef value)
{
    CFPreferencesSetAppValue(toCfString(key).get(), value, kCFPreferencesCurrentApplication);
    CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication);
}

} // namespace

bool MacUserDefaults::contains(const QString &key) const
{
    return bool(copy(key));
}

std::optional<bool> MacUserDefaults::boolean(const QString &key) const
{
    return toBoolean(copy(key).get());
}

std::optional<double> MacUserDefaults::number(const QString &key) const
{
    return toDouble(copy(key).get());
}

std::optional<QByteArray> MacUserDefaults::data(const QString &key) const
{
    const auto held = copy(key);
    const auto bytes = cfCast<CFDataRef>(held.get());
    if (!bytes)
        return {};
    return QByteArray(reinterpret_cast<const char *>(CFDataGetBytePtr(bytes)),
                      CFDataGetLength(bytes));
}

std::optional<QString> MacUserDefaults::text(const QString &key) const
{
    const auto held = copy(key);
    const auto string = cfCast<CFStringRef>(held.get());
    return string ? std::optional(toQString(string)) : std::nullopt;
}

void MacUserDefaults::setBoolean(const QString &key, bool value)
{
    write(key, value ? kCFBooleanTrue : kCFBooleanFalse);
}

void MacUserDefaults::setNumber(const QString &key, double value)
{
    const auto number =
        CfRef<CFNumberRef>::adopt(CFNumberCreate(kCFAllocatorDefault, kCFNumberDoubleType, &value));
    write(key, number.get());
}

void MacUserDefaults::setData(const QString &key, const QByteArray &value)
{
    const auto data = CfRef<CFDataRef>::adopt(CFDataCreate(
        kCFAllocatorDefault, reinterpret_cast<const UInt8 *>(value.constData()), value.size()));
    write(key, data.get());
}

void MacUserDefaults::setText(const QString &key, const QString &value)
{
    write(key, toCfString(value).get());
}

void MacUserDefaults::remove(const QString &key)
{
    write(key, nullptr);
}

} // namespace Panorel::Mac
