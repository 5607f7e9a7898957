#include "Panorel/Settings/UpdaterCenter.h"

namespace Panorel {

UpdaterCenter::UpdaterCenter(UpdaterPort &updater)
    : m_updater(updater), m_automatically(updater.automaticallyChecksForUpdates())
{}

void UpdaterCenter::setAutomaticallyChecksForUpdates(bool checks)
{
    m_automatically = checks;
    m_updater.setAutomaticallyChecksForUpdates(checks);
    Q_EMIT changed();
}

} // namespace Panorel
