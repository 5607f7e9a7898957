#include "PanorelCore/Matching/WindowMatcher.h"

#include <algorithm>
#include <cmath>

namespace Panorel::WindowMatcher {

namespace {

using Pool = std::vector<LiveWindow>;

/// An empty live title is a prefix of every saved one: many windows get their title late.
double titleScore(const QString &saved, const QString &live)
{
    if (saved.isEmpty())
        return 0;
    return saved.startsWith(live) || live.startsWith(saved) ? 0.5 : 0;
}

double sizeScore(const Rect &saved, const Rect &live)
{
    const double difference =
        std::abs(saved.width - live.width) + std::abs(saved.height - live.height);
    return std::max(0.0, 1 - difference / 2000);
}

std::optional<qint64> takeExact(Pool &pool, const WindowRecord &record)
{
    const auto found = std::find_if(pool.begin(), pool.end(), [&](const LiveWindow &window) {
        return window.bundleID == record.bundleID && window.title == record.title;
    });
    if (found == pool.end())
        return {};
    const qint64 id = found->id;
    pool.erase(found);
    return id;
}

std::optional<qint64> takeBest(Pool &pool, const WindowRecord &record)
{
    auto best = pool.end();
    double bestScore = 0;
    for (auto window = pool.begin(); window != pool.end(); ++window) {
        if (window->bundleID != record.bundleID)
            continue;
        const double score =
            titleScore(record.title, window->title) + sizeScore(record.frame, window->frame);
        if (best == pool.end() || score > bestScore) {
            best = window;
            bestScore = score;
        }
    }
    if (best == pool.end())
        return {};
    const qint64 id = best->id;
    pool.erase(best);
    return id;
}

} // namespace

std::vector<MatchResult> match(const std::vector<WindowRecord> &records,
                               const std::vector<LiveWindow> &live)
{
    Pool pool = live;
    std::vector<MatchResult> results;
    results.reserve(records.size());
    // An exact match of a later record wins over a scored one of an earlier record, hence two
    // passes over all records.
    for (const WindowRecord &record : records)
        results.push_back({record, takeExact(pool, record)});
    for (MatchResult &result : results) {
        if (!result.liveID)
            result.liveID = takeBest(pool, result.record);
    }
    return results;
}

MatchReason reason(const WindowRecord &record, const LiveWindow &chosen,
                   const std::vector<LiveWindow> &live)
{
    const auto isOnly = [&](auto isAsGood) {
        return std::ranges::count_if(live,
                                     [&](const LiveWindow &window) {
                                         return window.bundleID == chosen.bundleID
                                                && isAsGood(window);
                                     })
               == 1;
    };
    if (record.title == chosen.title) {
        return isOnly([&](const LiveWindow &window) { return window.title == chosen.title; })
                   ? MatchReason::Title
                   : MatchReason::Order;
    }
    if (titleScore(record.title, chosen.title) > 0)
        return MatchReason::Prefix;
    const double score = sizeScore(record.frame, chosen.frame);
    return isOnly([&](const LiveWindow &window) {
        return sizeScore(record.frame, window.frame) >= score;
    })
               ? MatchReason::Size
               : MatchReason::Order;
}

} // namespace Panorel::WindowMatcher
