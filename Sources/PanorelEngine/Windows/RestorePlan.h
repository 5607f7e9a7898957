#pragma once

#include "PanorelCore/Matching/WindowMatcher.h"
#include "PanorelCore/Records/Models.h"

#include <QString>

#include <optional>
#include <vector>

namespace Panorel {

/// What a restore would do with one saved window.
struct PlannedWindow {
    WindowRecord record; ///< where it would go
    /// The window that would be moved, and where it is; absent: none, and the note says why.
    std::optional<LiveWindow> live;
    MatchReason reason = MatchReason::None;
    bool setsSize = false;
    QString note;

    /// Whether the window is to be sent anywhere else than where it is.
    bool moves() const
    {
        return live
               && (live->frame.origin() != record.frame.origin()
                   || (setsSize && live->frame.size() != record.frame.size()));
    }
};

/// What a restore would do, in the order in which it would do it.
using RestorePlan = std::vector<PlannedWindow>;

} // namespace Panorel
