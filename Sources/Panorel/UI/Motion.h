#pragma once

class QWidget;

namespace Panorel {

/// Lets a widget appear softly, in a tenth of a second; at once where the platform has animations
/// switched off.
void fadeIn(QWidget &widget);

} // namespace Panorel
