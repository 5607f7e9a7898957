#include "MacDoubles/C/CfObjects.h"

#include <QHash>

#include <cmath>
#include <cstring>

using namespace Panorel::MacDoubles;

namespace {

template <typename Ref> Ref constant(CfType type, const QVariant &value)
{
    const CFTypeRef object = makeObject(type, value);
    objectOf(object).isConstant = true;
    return static_cast<Ref>(object);
}

} // namespace

extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = constant<CFBooleanRef>(CfType::Boolean, true);
const CFBooleanRef kCFBooleanFalse = constant<CFBooleanRef>(CfType::Boolean, false);
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{};

CFTypeRef CFRetain(CFTypeRef object)
{
    if (CfObject &counted = objectOf(object); !counted.isConstant)
        ++counted.references;
    return object;
}

void CFRelease(CFTypeRef object)
{
    CfObject &counted = objectOf(object);
    if (counted.isConstant || --counted.references > 0)
        return;
    for (const CFTypeRef member : counted.members)
        CFRelease(member);
}

CFTypeID CFGetTypeID(CFTypeRef object)
{
    return CFTypeID(objectOf(object).type);
}
Boolean CFEqual(CFTypeRef first, CFTypeRef second)
{
    return objectOf(first).equals(objectOf(second));
}

#define DEFINE_TYPE_ID(Kind)                                                                       \
    CFTypeID CF##Kind##GetTypeID()                                                                 \
    {                                                                                              \
        return CFTypeID(CfType::Kind);                                                             \
    }
DEFINE_TYPE_ID(String)
DEFINE_TYPE_ID(Array)
DEFINE_TYPE_ID(Dictionary)
DEFINE_TYPE_ID(Number)
DEFINE_TYPE_ID(Boolean)
DEFINE_TYPE_ID(Data)

CFStringRef doubleOfConstantString(const char *text)
{
    static QHash<QByteArray, CFStringRef> all;
    CFStringRef &string = all[text];
    if (!string)
        string = constant<CFStringRef>(CfType::String, QString::fromUtf8(text));
    return string;
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar *characters, CFIndex count)
{
    return make<CFStringRef>(CfType::String,
                             QString(reinterpret_cast<const QChar *>(characters), count));
}
CFIndex CFStringGetLength(CFStringRef string)
{
    return textOf(string).size();
}
void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar *buffer)
{
    const QString text = textOf(string);
    if (range.location < 0 || range.length < 0 || range.location + range.length > text.size())
        qFatal("characters beyond a string's end");
    std::copy_n(text.utf16() + range.location, range.length, buffer);
}

CFIndex CFArrayGetCount(CFArrayRef array)
{
    return CFIndex(objectOf(array, CfType::Array).members.size());
}
const void *CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index)
{
    return objectOf(array, CfType::Array).members.at(std::size_t(index));
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void **keys, const void **values,
                                   CFIndex count, const CFDictionaryKeyCallBacks *keyCallBacks,
                                   const CFDictionaryValueCallBacks *valueCallBacks)
{
    if (keyCallBacks != &kCFTypeDictionaryKeyCallBacks
        || valueCallBacks != &kCFTypeDictionaryValueCallBacks)
        qFatal("a dictionary that would not hold its members");
    std::vector<CFTypeRef> members;
    for (CFIndex i = 0; i < count; ++i)
        members.insert(members.end(), {CFRetain(keys[i]), CFRetain(values[i])});
    return make<CFDictionaryRef>(CfType::Dictionary, {}, std::move(members));
}
const void *CFDictionaryGetValue(CFDictionaryRef dictionary, const void *key)
{
    return objectOf(dictionary, CfType::Dictionary).find(key);
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType type, const void *value)
{
    if (type != kCFNumberDoubleType)
        qFatal("the double knows no number of that type");
    double number;
    std::memcpy(&number, value, sizeof number);
    return make<CFNumberRef>(CfType::Number, number);
}
Boolean CFNumberGetValue(CFNumberRef object, CFNumberType type, void *value)
{
    const QVariant &number = objectOf(object, CfType::Number).value;
    const bool isReal = number.typeId() == QMetaType::Double;
    const double real = number.toDouble();
    if (type == kCFNumberDoubleType) {
        std::memcpy(value, &real, sizeof real);
        return isReal || std::abs(real) <= 0x1p53;
    }
    // As documented, what the type can't hold comes approximated and with false.
    const bool isHeld = !isReal || (std::abs(real) < 0x1p63 && std::trunc(real) == real);
    const qlonglong integer = isHeld ? number.toLongLong() : 0;
    std::memcpy(value, &integer, sizeof integer);
    return isHeld;
}
Boolean CFBooleanGetValue(CFBooleanRef boolean)
{
    return objectOf(boolean, CfType::Boolean).value.toBool();
}

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8 *bytes, CFIndex length)
{
    return make<CFDataRef>(CfType::Data, QByteArray(reinterpret_cast<const char *>(bytes), length));
}
CFIndex CFDataGetLength(CFDataRef data)
{
    return objectOf(data, CfType::Data).value.toByteArray().size();
}
const UInt8 *CFDataGetBytePtr(CFDataRef data)
{
    // The variant shares the bytes, which so outlive the copy.
    return reinterpret_cast<const UInt8 *>(
        objectOf(data, CfType::Data).value.toByteArray().constData());
}

CFStringRef CFUUIDCreateString(CFAllocatorRef, CFUUIDRef uuid)
{
    return make<CFStringRef>(CfType::String, objectOf(uuid, CfType::Uuid).value);
}

} // extern "C"
