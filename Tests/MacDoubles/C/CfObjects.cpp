#include "MacDoubles/C/CfObjects.h"

#include <QByteArray>
#include <QPointF>
#include <QRectF>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
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

CFTypeRef adopted(std::unique_ptr<CfObject> object)
{
    const std::lock_guard lock(ledger().lock);
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
    return objectOf<CfString>(string, CfType::String).text;
}

bool CfString::equals(const CfObject &other) const
{
    return other.type == CfType::String && static_cast<const CfString &>(other).text == text;
}

QString CfPlain::description() const
{
    return QStringLiteral("CF type %1 %2").arg(int(type)).arg(value.toString());
}

void CfArray::releaseMembers() const
{
    for (const CFTypeRef member : members)
        CFRelease(member);
}

QString CfArray::description() const
{
    return QStringLiteral("CFArray of %1").arg(members.size());
}

void CfDictionary::releaseMembers() const
{
    for (const auto &[name, value] : members) {
        CFRelease(name);
        CFRelease(value);
    }
}

QString CfDictionary::description() const
{
    return QStringLiteral("CFDictionary of %1").arg(members.size());
}

CFTypeRef CfDictionary::find(CFTypeRef key) const
{
    for (const auto &[name, value] : members) {
        if (objectOf(name).equals(objectOf(key)))
            return value;
    }
    return nullptr;
}

QString AxValue::description() const
{
    return QStringLiteral("AXValue of type %1").arg(int(kind));
}

CFTypeRef toCf(const QVariant &value)
{
    const auto geometry = [](AXValueType type, const QRectF &rect) {
        return make<CFTypeRef, AxValue>(
            type, CGRect{{rect.x(), rect.y()}, {rect.width(), rect.height()}});
    };
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return nullptr;
    case QMetaType::Bool:
        return value.toBool() ? kCFBooleanTrue : kCFBooleanFalse;
    case QMetaType::QString:
        return make<CFTypeRef, CfString>(value.toString());
    case QMetaType::QPointF:
        return geometry(kAXValueTypeCGPoint, {value.toPointF(), QSizeF()});
    case QMetaType::QSizeF:
        return geometry(kAXValueTypeCGSize, {QPointF(), value.toSizeF()});
    case QMetaType::QRectF:
        return geometry(kAXValueTypeCGRect, value.toRectF());
    case QMetaType::QByteArray:
        return make<CFTypeRef, CfPlain>(CfType::Data, value);
    case QMetaType::Nullptr:
        return make<CFTypeRef, CfPlain>(CfType::Null, value);
    case QMetaType::QVariantList: {
        std::vector<CFTypeRef> members;
        for (const QVariant &member : value.toList())
            members.push_back(toCf(member));
        return make<CFTypeRef, CfArray>(std::move(members));
    }
    case QMetaType::QVariantMap: {
        CfDictionary::Members members;
        const QVariantMap map = value.toMap();
        for (auto entry = map.begin(); entry != map.end(); ++entry)
            members.emplace_back(toCf(entry.key()), toCf(entry.value()));
        return make<CFTypeRef, CfDictionary>(std::move(members));
    }
    default: // a number, an integer or not
        return make<CFTypeRef, CfPlain>(CfType::Number, value);
    }
}

QVariant fromCf(CFTypeRef object)
{
    if (!object)
        return {};
    if (objectOf(object).type == CfType::String)
        return textOf(static_cast<CFStringRef>(object));
    const auto *plain = dynamic_cast<const CfPlain *>(&objectOf(object));
    if (!plain)
        stopTest(QStringLiteral("the double can't store this: ") + objectOf(object).description());
    return plain->value;
}

} // namespace Panorel::MacDoubles
