#pragma once

#import <AppKit/AppKit.h>

@interface NSView (MovesToWindow)
- (void)moveToWindow:(NSWindow *)window;
@end
