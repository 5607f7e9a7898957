#pragma once

#include "Panorel/Settings/SceneCollection.h"

namespace Panorel {

/// Every scene with all that can be set about it.
class ScenesPane : public SceneCollection {
    Q_OBJECT

public:
    /// A null `editScene`: no way to edit a scene's windows.
    ScenesPane(SettingsModel &model, EditScene editScene,
               const SettingsEnvironment &environment = {}, QWidget *parent = nullptr)
        : SceneCollection(tr("Scenes"), model, std::move(editScene), environment, parent)
    {}
};

} // namespace Panorel
