#include "MacDoubles/C/CfObjects.h"

#include <QDebug>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>

namespace Panorel::MacDoubles {

namespace {

/// The dead are kept until the test is over, so that no new object gets their address.
struct Ledger {
    std::recursive_mutex lock;
    std::map<CFTypeRef, std::unique_ptr<CfObject>> objects;
};

Ledger &ledger()
{
    static Ledger all;
    return all;
}

} // namespace

void stopTest(const QString &reason)
{
    // Past Qt Test's own handling of a crash, which may wait for what this call holds.
    const char *test = QTest::currentTestFunction();
    std::fprintf(stderr, "%s: double: %s\n", test ? test : "", qPrintable(reason));
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

CFTypeRef makeObject(CfType type, const QVariant &value, std::vector<CFTypeRef> members)
{
    const std::lock_guard lock(ledger().lock);
    std::unique_ptr<CfObject> object(new CfObject{type, value, std::move(members)});
    const CFTypeRef reference = object.get();
    ledger().objects[reference] = std::move(object);
    return reference;
}

CfObject &objectOf(CFTypeRef reference)
{
    const std::lock_guard lock(ledger().lock);
    if (!reference)
        stopTest(QStringLiteral("no object was given"));
    const auto found = ledger().objects.find(reference);
    if (found == ledger().objects.end())
        stopTest(QStringLiteral("a foreign object was given"));
    if (found->second->references == 0)
        stopTest(QStringLiteral("a dead object was given: ") + found->second->description());
    return *found->second;
}

const CfObject &objectOf(CFTypeRef reference, CfType type)
{
    const CfObject &object = objectOf(reference);
    if (object.type != type)
        stopTest(QStringLiteral("wrong type: ") + object.description());
    return object;
}

QStringList takeLeaks()
{
    const std::lock_guard lock(ledger().lock);
    QStringList leaks;
    for (const auto &[reference, object] : ledger().objects) {
        if (!object->isConstant && object->references > 0)
            leaks << object->description();
    }
    std::erase_if(ledger().objects, [](const auto &entry) { return !entry.second->isConstant; });
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
    case QMetaType::QRectF:
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
        stopTest(QStringLiteral("the double can't store this: ") + held.description());
    return held.value;
}

} // namespace Panorel::MacDoubles
