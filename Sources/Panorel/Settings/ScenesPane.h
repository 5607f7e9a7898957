#pragma once

#include "Panorel/Settings/SceneCollection.h"

namespace Panorel {

/// Every scene with all that can be set about it.
class ScenesPane : public SceneCollection {
    Q_OBJECT

public:
    /// Nulls: no way to edit a scene's windows, no way to set its key.
    ScenesPane(SettingsModel &model, EditScene editScene, const MakeKeyField &makeKeyField = {},
               QWidget *parent = nullptr)
        : SceneCollection(tr("Scenes"), model, std::move(editScene), makeKeyField, parent)
    {}
};

} // namespace Panorel
