#include "MacDoubles/C/CfObjects.h"

#include <QHash>

#include <cstring>
#include <memory>

namespace Panorel::MacDoubles {

namespace {

/// The dead are kept until the test is over, so that no new object gets their address.
std::map<CFTypeRef, std::unique_ptr<CfObject>> &ledger()
{
    static std::map<CFTypeRef, std::unique_ptr<CfObject>> all;
    return all;
}

template <typename Ref> Ref constant(CfType type, const QVariant &value)
{
    const CFTypeRef object = makeObject(type, value);
    objectOf(object).isConstant = true;
    return static_cast<Ref>(object);
}

} // namespace

CFTypeRef makeObject(CfType type, const QVariant &value, std::vector<CFTypeRef> members)
{
    auto object = std::make_unique<CfObject>(type, value, std::move(members));
    const CFTypeRef reference = object.get();
    ledger()[reference] = std::move(object);
    return reference;
}

CfObject &objectOf(CFTypeRef reference)
{
    const auto found = ledger().find(reference);
    if (found == ledger().end() || found->second->references == 0)
        qFatal("a null, dead or foreign object was given");
    return *found->second;
}

const CfObject &objectOf(CFTypeRef reference, CfType type)
{
    const CfObject &object = objectOf(reference);
    if (object.type != type)
        qFatal("an object of type %d was given for one of type %d", int(object.type), int(type));
    return object;
}

QStringList takeLeaks()
{
    QStringList leaks;
    for (const auto &[reference, object] : ledger()) {
        if (!object->isConstant && object->references > 0)
            leaks << QStringLiteral("CF type %1 ").arg(int(object->type))
                         + object->value.toString();
    }
    std::erase_if(ledger(), [](const auto &entry) { return !entry.second->isConstant; });
    return leaks;
}

QString textOf(CFStringRef string)
{
    return objectOf(string, CfType::String).value.toString();
}

bool CfObject::operator==(const CfObject &other) const
{
    return this == &other || (type == other.type && value.isValid() && value == other.value);
}

CFTypeRef CfObject::find(CFTypeRef key) const
{
    for (std::size_t i = 0; i < members.size(); i += 2) {
        if (objectOf(members[i]) == objectOf(key))
            return members[i + 1];
    }
    return nullptr;
}

CFTypeRef toCf(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<Element>())
        return makeObject(CfType::Element, value);
    std::vector<CFTypeRef> members;
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return nullptr;
    case QMetaType::Bool:
        return value.toBool() ? kCFBooleanTrue : kCFBooleanFalse;
    case QMetaType::QString:
        return makeObject(CfType::String, value);
    case QMetaType::QPointF:
    case QMetaType::QSizeF:
        return makeObject(CfType::Value, value);
    case QMetaType::QByteArray:
        return makeObject(CfType::Data, value);
    case QMetaType::Nullptr:
        return makeObject(CfType::Null, value);
    case QMetaType::QVariantList:
        for (const QVariant &member : value.toList())
            members.push_back(toCf(member));
        return makeObject(CfType::Array, {}, std::move(members));
    case QMetaType::QVariantMap:
        for (const auto &[key, member] : value.toMap().asKeyValueRange())
            members.insert(members.end(), {toCf(key), toCf(member)});
        return makeObject(CfType::Dictionary, {}, std::move(members));
    default: // a number, an integer or not
        return makeObject(CfType::Number, value);
    }
}

} // namespace Panorel::MacDoubles

using namespace Panorel::MacDoubles;

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
    return objectOf(first) == objectOf(second);
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
    std::copy_n(textOf(string).utf16() + range.location, range.length, buffer);
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
                                   CFIndex count, const CFDictionaryKeyCallBacks *,
                                   const CFDictionaryValueCallBacks *)
{
    std::vector<CFTypeRef> members;
    for (CFIndex i = 0; i < count; ++i)
        members.insert(members.end(), {CFRetain(keys[i]), CFRetain(values[i])});
    return static_cast<CFDictionaryRef>(makeObject(CfType::Dictionary, {}, std::move(members)));
}
const void *CFDictionaryGetValue(CFDictionaryRef dictionary, const void *key)
{
    return objectOf(dictionary, CfType::Dictionary).find(key);
}

CFNumberRef CFNumberCreate(CFAllocatorRef, CFNumberType, const void *value)
{
    return make<CFNumberRef>(CfType::Number, *static_cast<const double *>(value));
}
Boolean CFNumberGetValue(CFNumberRef object, CFNumberType type, void *value)
{
    const double real = objectOf(object, CfType::Number).value.toDouble();
    const auto integer = std::int64_t(type == kCFNumberSInt64Type ? real : 0);
    if (type == kCFNumberSInt64Type)
        std::memcpy(value, &integer, sizeof integer);
    else
        std::memcpy(value, &real, sizeof real);
    // As documented, what the type can't hold comes approximated and with false.
    return type != kCFNumberSInt64Type || double(integer) == real;
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
