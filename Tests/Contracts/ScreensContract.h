#pragma once

#include "Contracts/DesktopRig.h"

#include <QObject>

namespace Panorel {

/// What DisplayWatcher relies on in every platform's screens.
class ScreensContract : public QObject {
    Q_OBJECT

public:
    explicit ScreensContract(DesktopRig &rig) : m_rig(rig) {}

private Q_SLOTS:
    void thePrimaryScreenIsTheOriginOfTheBottomLeftSpace();
    void plugAndUnplugAreAnnouncedAndShow();
    void aDisplayKeepsItsIdentityAcrossAnUnplug();

private:
    DesktopRig &m_rig;
};

} // namespace Panorel
