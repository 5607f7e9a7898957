#pragma once

#include <ApplicationServices/ApplicationServices.h>
#include <QStringList>
#include <QVariant>

#include <vector>

namespace Panorel::MacDoubles {

/// The objects behind the CoreFoundation double. Each counts its own references. A null, dead or
/// foreign object, or one of the wrong type, stops the test at the call that was given it.
enum class CfType : CFTypeID {
    String = 7,
    Null = 16,
    Dictionary = 18,
    Array = 19,
    Data = 20,
    Boolean = 21,
    Number = 22,
    Uuid = 23,
    Element = 101,
    Value = 102,
};

struct CfObject {
    explicit CfObject(CfType kind) : type(kind) {}
    virtual ~CfObject() = default;
    CfObject(const CfObject &) = delete;
    CfObject &operator=(const CfObject &) = delete;

    virtual QString description() const = 0;
    virtual void releaseMembers() const {} ///< at the end of its life
    virtual bool equals(const CfObject &other) const { return this == &other; }

    const CfType type;
    long references = 1;
    bool isConstant = false; ///< never counted
};

struct CfString final : CfObject {
    explicit CfString(QString held) : CfObject(CfType::String), text(std::move(held)) {}
    QString description() const override { return QStringLiteral("CFString \"") + text + u'"'; }
    bool equals(const CfObject &other) const override;
    const QString text; ///< may hold lone surrogates
};

/// A boolean, a number, data, a UUID's text or null: what it is says its type.
struct CfPlain final : CfObject {
    CfPlain(CfType kind, QVariant held) : CfObject(kind), value(std::move(held)) {}
    QString description() const override;
    const QVariant value;
};

/// Holds its members' references.
struct CfArray final : CfObject {
    explicit CfArray(std::vector<CFTypeRef> adopted)
        : CfObject(CfType::Array), members(std::move(adopted))
    {}
    void releaseMembers() const override;
    QString description() const override;
    const std::vector<CFTypeRef> members;
};

/// Holds its keys' and values' references.
struct CfDictionary final : CfObject {
    using Members = std::vector<std::pair<CFTypeRef, CFTypeRef>>;
    explicit CfDictionary(Members adopted)
        : CfObject(CfType::Dictionary), members(std::move(adopted))
    {}
    void releaseMembers() const override;
    QString description() const override;
    CFTypeRef find(CFTypeRef key) const; ///< null where it is not there
    const Members members;
};

/// A point, a size or a rectangle for the accessibility interface.
struct AxValue final : CfObject {
    AxValue(AXValueType of, CGRect held) : CfObject(CfType::Value), kind(of), rect(held) {}
    QString description() const override;
    const AXValueType kind;
    const CGRect rect; ///< a point has no size, a size no origin
};

/// The caller owns the one reference.
CFTypeRef adopted(std::unique_ptr<CfObject> object);
template <typename Ref, typename Object, typename... Values> Ref make(Values &&...values)
{
    return static_cast<Ref>(adopted(std::make_unique<Object>(std::forward<Values>(values)...)));
}

[[noreturn]] void stopTest(const QString &reason);
CfObject &objectOf(CFTypeRef reference);
template <typename Object> const Object &objectOf(CFTypeRef reference, CfType type)
{
    const CfObject &object = objectOf(reference);
    if (object.type != type)
        stopTest(QStringLiteral("wrong type: ") + object.description());
    return static_cast<const Object &>(object);
}
QString textOf(CFStringRef string);

/// The object that a value stands for, for the caller to release; null for an invalid value. A
/// QPointF, QSizeF or QRectF is an AxValue, nullptr is CFNull.
CFTypeRef toCf(const QVariant &value);
QVariant fromCf(CFTypeRef object);

/// What nobody has released, each by its description, and forgets it.
QStringList takeLeaks();

} // namespace Panorel::MacDoubles
