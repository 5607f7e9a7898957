#pragma once

#include "PanorelCore/Matching/RestoreReport.h"
#include "PanorelEngine/Scenes/SceneApplier.h"

#include <QJsonObject>

/// Restores and plans in the words of the command line's JSON.
namespace Panorel::RestoreWords {

QJsonObject report(const RestoreReport &report);

/// Frames are [[x, y], [width, height]] in pixels from the top left corner, as in the files.
QJsonObject plan(const RestorePlan &plan);
QJsonObject plan(const ScenePlan &plan);

} // namespace Panorel::RestoreWords
