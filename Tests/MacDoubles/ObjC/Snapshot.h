#pragma once

#include "PanorelMac/Support/NsText.h"

#include <memory>

/// An object that shows what something was when it was asked for.
@interface Snapshot : NSObject {
@public
    std::shared_ptr<const void> *_state;
}
+ (instancetype)of:(std::shared_ptr<const void>)state;
@end

inline NSString *nsTextOrNil(const std::optional<QString> &text)
{
    return text ? Panorel::Mac::nsText(*text) : nil;
}

/// A snapshot of a value of that type.
template <typename Value> const Value &valueOf(Snapshot *snapshot)
{
    return *static_cast<const Value *>(snapshot->_state->get());
}
