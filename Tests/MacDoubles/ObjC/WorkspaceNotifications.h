#pragma once

#import <Foundation/Foundation.h>

/// A notification centre by the documented rules: it keeps an observer until that is removed, and
/// tells it on the main queue where that was asked for, else on the thread that posts.
@interface WorkspaceNotifications : NSNotificationCenter {
    NSMutableArray *_observers;
}
@end
