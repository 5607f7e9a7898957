#pragma once

#import <AppKit/AppKit.h>

@interface NSStatusBar (Items)
/// The one item that the bar shows; nil where there is none. More than one is a fault.
- (NSStatusItem *)shownItem;
@end
