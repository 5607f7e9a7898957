#include "MacDoubles/C/CfObjects.h"

#include <QDebug>

#include <map>
#include <memory>

namespace Panorel::MacDoubles {

namespace {

/// The dead are kept until the test is over, so that no new object gets their address.
std::map<CFTypeRef, std::unique_ptr<CfObject>> &ledger()
{
    static std::map<CFTypeRef, std::unique_ptr<CfObject>> all;
    return all;
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
    if (found == ledger().end())
        qFatal("a null or foreign object was given");
    if (found->second->references == 0)
        qFatal("a dead object was given: %s", qPrintable(found->second->description()));
    return *found->second;
}

const CfObject &objectOf(CFTypeRef reference, CfType type)
{
    const CfObject &object = objectOf(reference);
    if (object.type != type)
        qFatal("wrong type: %s", qPrintable(object.description()));
    return object;
}

QStringList takeLeaks()
{
    QStringList leaks;
    for (const auto &[reference, object] : ledger()) {
        if (!object->isConstant && object->references > 0)
            leaks << object->description();
    }
    std::erase_if(ledger(), [](const auto &entry) { return !entry.second->isConstant; });
    return leaks;
}

QString textOf(CFStringRef string)
{
    return objectOf(string, CfType::String).value.toString();
}

QString CfObject::description() const
{
    QString text;
    QDebug(&text).nospace() << "CF type " << int(type) << ' ' << value << ", " << members.size()
                            << " members";
    return text;
}

bool CfObject::equals(const CfObject &other) const
{
    return this == &other || (type == other.type && value.isValid() && value == other.value);
}

CFTypeRef CfObject::find(CFTypeRef key) const
{
    for (std::size_t i = 0; i < members.size(); i += 2) {
        if (objectOf(members[i]).equals(objectOf(key)))
            return members[i + 1];
    }
    return nullptr;
}

CFTypeRef toCf(const QVariant &value)
{
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

QVariant fromCf(CFTypeRef object)
{
    const CfObject &held = objectOf(object);
    if (!held.value.isValid())
        qFatal("the double can't store this: %s", qPrintable(held.description()));
    return held.value;
}

} // namespace Panorel::MacDoubles
