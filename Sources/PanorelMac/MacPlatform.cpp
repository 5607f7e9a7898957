#include "PanorelMac/MacPlatform.h"

#ifdef PANOREL_UPDATES
#include "PanorelMac/Updates/SparkleUpdater.h"
#endif

namespace Panorel {

namespace {

std::unique_ptr<UpdaterPort> makeUpdater()
{
#ifdef PANOREL_UPDATES
    return std::make_unique<Mac::SparkleUpdater>();
#else
    return nullptr;
#endif
}

} // namespace

std::vector<LinkedLibrary> Mac::MacPlatform::libraries() const
{
    if (!m_updater)
        return {}; // the rest is part of the system
    return {{QStringLiteral("Sparkle"), Licence::MIT}};
}

/// The window server is always there, and the toolkit finds it by itself.
void preparePlatform() {}

std::unique_ptr<Platform> makePlatform(AppLog &, const Clock &)
{
    return std::make_unique<Mac::MacPlatform>(makeUpdater());
}

std::unique_ptr<UserDefaultsPort> makeUserDefaults(AppLog &, const Clock &)
{
    return std::make_unique<Mac::MacUserDefaults>();
}

std::unique_ptr<LoginItemPort> makeLoginItem()
{
    return std::make_unique<Mac::MacLoginItem>();
}

} // namespace Panorel
