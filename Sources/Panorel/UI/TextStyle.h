#pragma once

#include <QFont>

namespace Panorel {

/// The four kinds of text there are.
enum class TextStyle {
    Body,      ///< the platform's font as it is
    Title,     ///< larger, for the one thing a view is about
    Heading,   ///< above a section
    Secondary, ///< smaller and fainter: explanations, keys
};

/// From the application's font as it is now; follow QEvent::ApplicationFontChange.
QFont fontOf(TextStyle style);

} // namespace Panorel
