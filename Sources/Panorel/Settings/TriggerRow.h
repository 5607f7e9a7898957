#pragma once

#include "PanorelCore/Triggers/TriggerRecord.h"

#include <QWidget>

namespace Panorel {

class Toggle;

/// One trigger: when it fires, the scene it applies, a switch, and a way to remove it.
class TriggerRow : public QWidget {
    Q_OBJECT

public:
    /// `sceneName` absent: the scene is gone.
    TriggerRow(const TriggerRecord &trigger, const std::optional<QString> &sceneName,
               QWidget *parent = nullptr);

Q_SIGNALS:
    void switched(bool isOn);
    void removeRequested();
};

} // namespace Panorel
