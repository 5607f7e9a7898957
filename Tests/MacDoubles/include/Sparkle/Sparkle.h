// The part of the update framework that the port uses, over another Foundation.
#pragma once

#import <Foundation/Foundation.h>

@interface SPUUpdater : NSObject
@property(nonatomic) BOOL automaticallyChecksForUpdates;
@end

@interface SPUStandardUpdaterController : NSObject
@end
@interface SPUStandardUpdaterController (Used)
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id)updaterDelegate
                     userDriverDelegate:(id)userDriverDelegate;
@property(nonatomic, readonly) SPUUpdater *updater;
- (void)checkForUpdates:(id)sender;
@end
