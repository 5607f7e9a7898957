#pragma once

#include <QString>

namespace Panorel {

/// A text as one line, for controls that take one: line feeds and other control characters become
/// blanks, and there are none at the ends.
QString plainLine(const QString &text);

/// A text as a tool tip that shows it as it stands. A tool tip takes what looks like HTML for that,
/// and nothing else: "R&D" must not be escaped, "<img src=...>" must.
QString plainToolTip(const QString &text);

} // namespace Panorel
