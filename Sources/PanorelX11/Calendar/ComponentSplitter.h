#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

namespace Panorel::X11 {

/// The components directly inside a text's VCALENDARs, each whole, in the text's own bytes.
struct SplitCalendar {
    std::vector<QByteArray> zones;
    std::vector<QByteArray> events;
    bool isWellFormed = false; ///< a calendar was there and everything that began also ended

    /// Splitting before parsing keeps a broken event from spoiling the next, the memory for
    /// parsing small, and deep nesting, which the parser follows by recursion, away from it.
    static SplitCalendar split(const QByteArray &text);
};

} // namespace Panorel::X11
