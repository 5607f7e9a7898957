#include "PanorelMac/Updates/SparkleUpdater.h"

#include "PanorelMac/Support/Retained.h"

#import <Sparkle/Sparkle.h>

namespace Panorel::Mac {

struct SparkleUpdater::Controller {
    using Owned = Retained<SPUStandardUpdaterController *>;

    Owned owned = Owned::adopt([[SPUStandardUpdaterController alloc] initWithStartingUpdater:YES
                                                                             updaterDelegate:nil
                                                                          userDriverDelegate:nil]);
};

SparkleUpdater::SparkleUpdater()
{
    @autoreleasepool {
        m_controller = std::make_unique<Controller>();
    }
}

SparkleUpdater::~SparkleUpdater()
{
    @autoreleasepool {
        m_controller.reset();
    }
}

bool SparkleUpdater::automaticallyChecksForUpdates()
{
    @autoreleasepool {
        return bool(m_controller->owned.get().updater.automaticallyChecksForUpdates);
    }
}

void SparkleUpdater::setAutomaticallyChecksForUpdates(bool checks)
{
    @autoreleasepool {
        m_controller->owned.get().updater.automaticallyChecksForUpdates = checks;
    }
}

void SparkleUpdater::checkForUpdates()
{
    @autoreleasepool {
        [m_controller->owned.get() checkForUpdates:nil];
    }
}

} // namespace Panorel::Mac
