#pragma once

#include "PanorelCore/Records/Models.h"

#include <optional>
#include <vector>

namespace Panorel {

/// A window that exists now.
struct LiveWindow {
    qint64 id = 0; ///< its number within one enumeration, not an identity beyond that
    QString bundleID;
    QString title;
    Rect frame;

    bool operator==(const LiveWindow &) const = default;
};

struct MatchResult {
    WindowRecord record;
    std::optional<qint64> liveID; ///< absent: no live window is left for the record

    bool operator==(const MatchResult &) const = default;
};

/// Why a live window was taken for a saved one.
enum class MatchReason {
    None,   ///< it was not
    Title,  ///< no other has that title
    Prefix, ///< one title begins with the other
    Size,   ///< the titles have nothing in common, but its size is nearest
    Order,  ///< several would do as well; the first that was left
};

/// Decides which saved window is which live one: first by equal title, then by the best score of
/// title prefix and size. Positions play no part, since restoring is about to change them.
namespace WindowMatcher {

/// One result per record, in the records' order. A live window goes to one record at most; among
/// equals the earlier record gets the earlier window. An application's last window is given
/// however poor its score.
std::vector<MatchResult> match(const std::vector<WindowRecord> &records,
                               const std::vector<LiveWindow> &live);

/// Why match() took `chosen`, one of `live`, for the record.
MatchReason reason(const WindowRecord &record, const LiveWindow &chosen,
                   const std::vector<LiveWindow> &live);

} // namespace WindowMatcher

} // namespace Panorel
