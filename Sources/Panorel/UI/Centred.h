#pragma once

class QHBoxLayout;
class QWidget;

namespace Panorel {

/// A line with the widget in the middle, as wide as the room and its own maximum allow. Whoever
/// the layout is given to owns both.
QHBoxLayout *centred(QWidget *widget);

} // namespace Panorel
