#pragma once

#include "PanorelPorts/UpdaterPort.h"

#include <QObject>

namespace Panorel {

/// Software updates as the settings and the panel see them. There is one where the platform has an
/// updater, made by main, and none where it has not.
class UpdaterCenter : public QObject {
    Q_OBJECT

public:
    /// The port must outlive it.
    explicit UpdaterCenter(UpdaterPort &updater);

    bool automaticallyChecksForUpdates() const { return m_automatically; }
    void setAutomaticallyChecksForUpdates(bool checks);
    void checkForUpdates() { m_updater.checkForUpdates(); }

Q_SIGNALS:
    void changed();

private:
    UpdaterPort &m_updater;
    bool m_automatically;
};

} // namespace Panorel
