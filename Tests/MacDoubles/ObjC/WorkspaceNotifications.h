#pragma once

#import <Foundation/Foundation.h>

/// Follows the documented rules where the library here does not: it keeps an observer until that
/// is removed, and its maker gets it autoreleased; a block with the main queue runs there. A queue
/// other than that is a fault.
@interface WorkspaceNotifications : NSNotificationCenter
@end
