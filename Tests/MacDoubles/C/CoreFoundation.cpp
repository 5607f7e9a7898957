#include "MacDoubles/C/CfObjects.h"

#include <QHash>

#include <cmath>
#include <cstring>
#include <limits>
#include <mutex>

using namespace Panorel::MacDoubles;

namespace {

// One for both, as counting happens on any thread.
std::recursive_mutex counting;

template <typename Ref, typename Object, typename... Values> Ref constant(Values &&...values)
{
    const CFTypeRef object = adopted(std::make_unique<Object>(std::forward<Values>(values)...));
    objectOf(object).isConstant = true;
    return static_cast<Ref>(object);
}

CFTypeID idOf(CfType type)
{
    return CFTypeID(type);
}

const CfPlain &plain(CFTypeRef object, CfType type)
{
    return objectOf<CfPlain>(object, type);
}

bool isFloating(const QVariant &number)
{
    return number.typeId() == QMetaType::Double || number.typeId() == QMetaType::Float;
}

/// As documented, what the type can't hold comes approximated and with false.
template <typename Integer> Boolean storeInteger(const QVariant &number, void *value)
{
    using Limits = std::numeric_limits<Integer>;
    if (!isFloating(number)) {
        const qlonglong exact = number.toLongLong();
        const auto stored = Integer(exact);
        std::memcpy(value, &stored, sizeof stored);
        return stored == exact;
    }
    const double real = number.toDouble();
    const bool isInRange = real >= double(Limits::min()) && real < -double(Limits::min());
    const Integer stored = isInRange ? Integer(real) : 0;
    std::memcpy(value, &stored, sizeof stored);
    return isInRange && double(stored) == real;
}

} // namespace

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = constant<CFBooleanRef, CfPlain>(CfType::Boolean, true);
const CFBooleanRef kCFBooleanFalse = constant<CFBooleanRef, CfPlain>(CfType::Boolean, false);
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};

CFTypeRef CFRetain(CFTypeRef object)
{
    const std::lock_guard lock(counting);
    if (CfObject &counted = objectOf(object); !counted.isConstant)
        ++counted.references;
    return object;
}

void CFRelease(CFTypeRef object)
{
    const std::lock_guard lock(counting);
    CfObject &counted = objectOf(object);
    if (!counted.isConstant && --counted.references == 0)
        counted.releaseMembers();
}

CFTypeID CFGetTypeID(CFTypeRef object)
{
    return idOf(objectOf(object).type);
}
Boolean CFEqual(CFTypeRef first, CFTypeRef second)
{
    return objectOf(first).equals(objectOf(second));
}

CFTypeID CFStringGetTypeID()
{
    return idOf(CfType::String);
}
CFTypeID CFArrayGetTypeID()
{
    return idOf(CfType::Array);
}
CFTypeID CFDictionaryGetTypeID()
{
    return idOf(CfType::Dictionary);
}
CFTypeID CFNumberGetTypeID()
{
    return idOf(CfType::Number);
}
CFTypeID CFBooleanGetTypeID()
{
    return idOf(CfType::Boolean);
}
CFTypeID CFDataGetTypeID()
{
    return idOf(CfType::Data);
}

CFStringRef doubleOfConstantString(const char *text)
{
    static QHash<QByteArray, CFStringRef> all;
    const std::lock_guard lock(counting);
    CFStringRef &string = all[text];
    if (!string)
        string = constant<CFStringRef, CfString>(QString::fromUtf8(text));
    return string;
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar *characters, CFIndex count)
{
    return make<CFStringRef, CfString>(QString(reinterpret_cast<const QChar *>(characters), count));
}
CFIndex CFStringGetLength(CFStringRef string)
{
    return textOf(string).size();
}
void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar *buffer)
{
    const QString text = textOf(string);
    if (range.location < 0 || range.length < 0 || range.location + range.length > text.size())
        stopTest(QStringLiteral("characters beyond a string's end"));
    std::copy_n(text.utf16() + range.location, range.length, buffer);
}

CFIndex CFArrayGetCount(CFArrayRef array)
{
    return CFIndex(objectOf<CfArray>(array, CfType::Array).members.size());
}
const void *CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    const auto &members = objectOf<CfArray>(array, CfType::Array).members;
    if (index < 0 || std::size_t(index) >= members.size())
        stopTest(QStringLiteral("a place beyond an array's end"));
    return members[std::size_t(index)];
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void **keys, const void **values,
                                   CFIndex count, const CFDictionaryKeyCallBacks *keyCallBacks,
                                   const CFDictionaryValueCallBacks *valueCallBacks)
{
    if (keyCallBacks != &kCFTypeDictionaryKeyCallBacks
        || valueCallBacks != &kCFTypeDictionaryValueCallBacks)
        stopTest(QStringLiteral("a dictionary that would not hold its members"));
    CfDictionary::Members members;
    for (CFIndex i = 0; i < count; ++i)
        members.emplace_back(CFRetain(keys[i]), CFRetain(values[i]));
    return make<CFDictionaryRef, CfDictionary>(std::move(members));
}
const void *CFDictionaryGetValue(CFDictionaryRef dictionary, const void *key)
{
    return objectOf<CfDictionary>(dictionary, CfType::Dictionary).find(key);
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void *value)
{
    if (type != kCFNumberDoubleType)
        stopTest(QStringLiteral("the double knows no number of that type"));
    double number;
    std::memcpy(&number, value, sizeof number);
    return make<CFNumberRef, CfPlain>(CfType::Number, number);
}
Boolean CFNumberGetValue(CFNumberRef object, CFNumberType type, void *value)
{
    const QVariant number = plain(object, CfType::Number).value;
    if (type == kCFNumberSInt32Type)
        return storeInteger<std::int32_t>(number, value);
    if (type == kCFNumberSInt64Type)
        return storeInteger<std::int64_t>(number, value);
    const double real = number.toDouble();
    std::memcpy(value, &real, sizeof real);
    return isFloating(number) || std::abs(real) <= 0x1p53;
}
Boolean CFBooleanGetValue(CFBooleanRef boolean)
{
    return plain(boolean, CfType::Boolean).value.toBool();
}

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8 *bytes, CFIndex length)
{
    return make<CFDataRef, CfPlain>(CfType::Data,
                                    QByteArray(reinterpret_cast<const char *>(bytes), length));
}
CFIndex CFDataGetLength(CFDataRef data)
{
    return plain(data, CfType::Data).value.toByteArray().size();
}
const UInt8 *CFDataGetBytePtr(CFDataRef data)
{
    // The variant shares the bytes, which so outlive the copy.
    return reinterpret_cast<const UInt8 *>(
        plain(data, CfType::Data).value.toByteArray().constData());
}

CFStringRef CFUUIDCreateString(CFAllocatorRef, CFUUIDRef uuid)
{
    return make<CFStringRef, CfString>(plain(uuid, CfType::Uuid).value.toString());
}

} // extern "C"
