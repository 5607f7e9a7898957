#pragma once

#include "PanorelMac/Support/CfRef.h"

#include <QString>

namespace Panorel::Mac {

/// Null only where the system has no memory left.
CfRef<CFStringRef> toCfString(const QString &text);

/// Valid Unicode, whatever the string holds.
QString toQString(CFStringRef string);

} // namespace Panorel::Mac
