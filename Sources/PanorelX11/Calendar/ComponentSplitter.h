#pragma once

#include <QByteArray>

#include <vector>

namespace Panorel::X11 {

/// The components directly inside a text's VCALENDARs, each whole and ready for libical: its parser
/// follows nesting by recursion, takes minutes for one line of megabytes, and writes to stderr
/// about an end without a beginning. Taken apart, they also can't spoil each other.
struct SplitCalendar {
    std::vector<QByteArray> zones;
    std::vector<QByteArray> events;
    bool isWellFormed = false; ///< a calendar was there and everything that began also ended

    /// Lines of more than 64 KB, such as attachments, are left out.
    static SplitCalendar split(const QByteArray &text);
};

} // namespace Panorel::X11
