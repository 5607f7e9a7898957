// The part of the update framework that the port uses, over another Foundation.
#pragma once

#import <Foundation/Foundation.h>

@protocol SPUUpdaterDelegate;
@protocol SPUStandardUserDriverDelegate;

@interface SPUUpdater : NSObject
@property(nonatomic) BOOL automaticallyChecksForUpdates;
@end

@interface SPUStandardUpdaterController : NSObject {
    SPUUpdater *_updater;
}
- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id<SPUUpdaterDelegate>)updaterDelegate
                     userDriverDelegate:(id<SPUStandardUserDriverDelegate>)userDriverDelegate;
@property(nonatomic, readonly) SPUUpdater *updater;
- (void)checkForUpdates:(id)sender;
@end
