#include "PanorelMac/Settings/MacActivationPolicy.h"

#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

namespace Panorel::Mac {

namespace {

NSApplicationActivationPolicy nativePolicy(ActivationPolicy policy)
{
    switch (policy) {
    case ActivationPolicy::Regular:
        return NSApplicationActivationPolicyRegular;
    case ActivationPolicy::Accessory:
        return NSApplicationActivationPolicyAccessory;
    case ActivationPolicy::Prohibited:
        break;
    }
    return NSApplicationActivationPolicyProhibited;
}

} // namespace

void MacActivationPolicy::setActivationPolicy(ActivationPolicy policy)
{
    @autoreleasepool {
        [NSApplication.sharedApplication setActivationPolicy:nativePolicy(policy)];
    }
}

} // namespace Panorel::Mac
