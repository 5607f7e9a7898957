#pragma once

#import <Foundation/Foundation.h>

#include <QString>

#include <optional>

namespace Panorel::Mac {

/// Valid Unicode: what is half a character becomes the replacement character. Absent for nil and
/// for what is no text at all.
std::optional<QString> textOf(id object);

/// Autoreleased; valid in the same way.
NSString *nsText(const QString &text);

} // namespace Panorel::Mac
