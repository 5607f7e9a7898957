#include "MacDoubles/Desktop/MacDesktop.h"

#import <ServiceManagement/ServiceManagement.h>
#import <Sparkle/Sparkle.h>

using namespace Panorel::MacDoubles;

@implementation SMAppService

+ (SMAppService *)mainAppService
{
    return [[[self alloc] init] autorelease];
}

- (BOOL)registerAndReturnError:(NSError **)error
{
    desktop().platform.loginItem().setRegistered(true);
    return YES;
}

- (BOOL)unregisterAndReturnError:(NSError **)error
{
    desktop().platform.loginItem().setRegistered(false);
    return YES;
}

@end

@implementation SPUUpdater

- (BOOL)automaticallyChecksForUpdates
{
    expectMainThread(__func__);
    return desktop().platform.updater()->automaticallyChecksForUpdates();
}

- (void)setAutomaticallyChecksForUpdates:(BOOL)checks
{
    expectMainThread(__func__);
    desktop().platform.updater()->setAutomaticallyChecksForUpdates(checks);
}

@end

@implementation SPUStandardUpdaterController

- (instancetype)initWithStartingUpdater:(BOOL)startUpdater
                        updaterDelegate:(id<SPUUpdaterDelegate>)updaterDelegate
                     userDriverDelegate:(id<SPUStandardUserDriverDelegate>)userDriverDelegate
{
    expectMainThread(__func__);
    if (updaterDelegate || userDriverDelegate)
        addFault(QStringLiteral("an updater with delegates"));
    self = [super init];
    _updater = [[SPUUpdater alloc] init];
    desktop().services.updaterRuns = startUpdater;
    return self;
}

- (void)dealloc
{
    [_updater release];
    [super dealloc];
}

- (SPUUpdater *)updater
{
    return _updater;
}

- (void)checkForUpdates:(id)sender
{
    expectMainThread(__func__);
    if (desktop().services.updaterRuns)
        desktop().platform.updater()->checkForUpdates();
}

@end
