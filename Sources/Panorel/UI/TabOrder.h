#pragma once

class QWidget;

namespace Panorel {

/// Tab and the arrow keys visit the controls below a widget in the order of its layouts, however
/// late a control was added.
void orderTabsByLayout(QWidget &root);

} // namespace Panorel
