#pragma once

#include <QColor>
#include <QPalette>

namespace Panorel {

/// How much one colour stands out against another: 1 (not at all) to 21 (black on white), as the
/// accessibility guidelines for web content compute it.
double contrast(const QColor &one, const QColor &other);

/// The colours of every view, derived from the palette of the session, light or dark. Views name
/// a colour by its role and never make one up.
struct Theme {
    QColor window;
    QColor text;
    QColor secondaryText; ///< explanations, keys, notes
    QColor card;          ///< a raised area
    QColor screen;        ///< the glass of a display in a schematic
    QColor line;          ///< hairlines between things
    QColor border;        ///< around a window, on whatever is behind it
    QColor hover;
    QColor pressed;
    QColor accent;     ///< the one prominent button, focus rings, windows in a schematic
    QColor accentText; ///< on the accent
    QColor accentHover;
    QColor accentPressed;
    QColor accentInk; ///< the accent as text or symbol on the window

    // Status. Each has a contrast of 4.5 or more to the window; never the only sign.
    QColor good;
    QColor attention;
    QColor off;

    /// Of what can't be used now.
    static constexpr double disabledOpacity = 0.45;

    /// Of a palette's active colours: the panel is no less alive for not having the focus.
    static Theme of(const QPalette &palette);
};

/// Readable text has at least this contrast to what is behind it.
constexpr double readableContrast = 4.5;

} // namespace Panorel
