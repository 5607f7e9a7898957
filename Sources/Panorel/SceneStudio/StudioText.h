#pragma once

#include "Panorel/SceneStudio/SceneStudioModel.h"

#include <QCoreApplication>

namespace Panorel {

/// What the studio says of a window, in one line. Plain text.
class StudioText {
    Q_DECLARE_TR_FUNCTIONS(StudioText)

public:
    static QString nameOf(const WindowRecord &window);
    /// Position and size, in whole pixels.
    static QString placeOf(const Rect &frame);
    static QString descriptionOf(const SceneStudioModel::Box &box);
};

} // namespace Panorel
