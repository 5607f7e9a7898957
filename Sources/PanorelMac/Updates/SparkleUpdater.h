#pragma once

#include "PanorelPorts/UpdaterPort.h"

#include <memory>

namespace Panorel::Mac {

/// The update framework's standard updater. Starts at once and schedules its own checks. Part of
/// builds that found the framework.
class SparkleUpdater final : public UpdaterPort {
public:
    SparkleUpdater();
    ~SparkleUpdater() override;

    bool automaticallyChecksForUpdates() override;
    void setAutomaticallyChecksForUpdates(bool checks) override;
    void checkForUpdates() override;

private:
    struct Controller;

    std::unique_ptr<Controller> m_controller;
};

} // namespace Panorel::Mac
