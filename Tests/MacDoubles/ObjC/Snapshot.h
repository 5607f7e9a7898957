#pragma once

#import <Foundation/Foundation.h>

#include <memory>

/// An object that shows what something was when it was asked for.
@interface Snapshot : NSObject {
    std::shared_ptr<const void> *_state;
}
+ (instancetype)of:(std::shared_ptr<const void>)state;
@end
