#pragma once

#include "MacDoubles/Desktop/MacDesktop.h"

#include <ApplicationServices/ApplicationServices.h>

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

/// What the accessibility interface names: a process and a window; its application, window 0; or
/// the whole system, process 0.
using Element = std::pair<ProcessIdentifier, int>;

struct CfObject {
    CfType type;
    QVariant value;                 ///< of what has no members; a string may hold lone surrogates
    std::vector<CFTypeRef> members; ///< held; a dictionary's keys and values by turns
    long references = 1;
    bool isConstant = false; ///< never counted

    bool operator==(const CfObject &other) const;
    CFTypeRef find(CFTypeRef key) const; ///< in a dictionary; null where it is not there
};

/// The caller owns the one reference, and the object those of its members.
CFTypeRef makeObject(CfType type, const QVariant &value, std::vector<CFTypeRef> members = {});
template <typename Ref> Ref make(CfType type, const QVariant &value)
{
    return static_cast<Ref>(makeObject(type, value));
}

CfObject &objectOf(CFTypeRef reference);
const CfObject &objectOf(CFTypeRef reference, CfType type);
QString textOf(CFStringRef string);

/// The object that a value stands for, for the caller to release; null for an invalid value. A
/// QPointF or QSizeF is a value of the accessibility interface, nullptr is CFNull.
CFTypeRef toCf(const QVariant &value);

} // namespace Panorel::MacDoubles
