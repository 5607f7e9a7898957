#include "PanorelCore/Matching/WindowMatcher.h"

#include "PanorelCore/Matching/SortedTitles.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace Panorel::WindowMatcher {

namespace {

double sizeScore(const Rect &saved, const Rect &live)
{
    const double difference =
        std::abs(saved.width - live.width) + std::abs(saved.height - live.height);
    return std::max(0.0, 1 - difference / 2000);
}

/// The live windows by application and title.
class ByTitle {
public:
    explicit ByTitle(const std::vector<LiveWindow> &live) : m_after(live.size(), none)
    {
        // From the last to the first, so that each is put before those that come after it.
        for (std::size_t i = live.size(); i-- > 0;) {
            m_after[i] = m_first.value(key(live[i]), none);
            m_first.insert(key(live[i]), i);
        }
    }

    /// The first that is left of those that equal the record, by its place among the live ones.
    std::optional<std::size_t> take(const WindowRecord &record)
    {
        const auto found = m_first.find(key(record));
        if (found == m_first.end() || found.value() == none)
            return {};
        return std::exchange(found.value(), m_after[found.value()]);
    }

private:
    using Key = std::pair<QStringView, QStringView>;
    static constexpr std::size_t none = std::numeric_limits<std::size_t>::max();

    template <typename Window> static Key key(const Window &window)
    {
        return {window.bundleID, window.title};
    }

    QHash<Key, std::size_t> m_first;
    std::vector<std::size_t> m_after; ///< for each window the next one that equals it
};

/// The windows of one application that no title has claimed, in the order of the live ones.
class Leftovers {
public:
    explicit Leftovers(const std::vector<const LiveWindow *> &windows)
        : m_titles(titlesOf(windows)), m_isRelated(m_titles.size())
    {
        for (const LiveWindow *window : windows)
            m_windows.push_back({window->id, m_titles.placeOf(window->title), window->frame});
    }

    std::optional<qint64> takeBest(const WindowRecord &record)
    {
        if (m_windows.empty())
            return {};
        // An empty live title is a prefix of every saved one: many windows get their title late.
        std::vector<std::size_t> related;
        if (!record.title.isEmpty())
            related = m_titles.related(record.title);
        for (const std::size_t title : related)
            m_isRelated[title] = 1;
        const auto best = find(record.frame, related.empty() ? 1 : 1.5);
        for (const std::size_t title : related)
            m_isRelated[title] = 0;
        const qint64 id = best->id;
        m_windows.erase(best);
        return id;
    }

private:
    struct Window {
        qint64 id;
        std::size_t title; ///< its place in the titles
        Rect frame;
    };
    using Windows = std::vector<Window>;

    static std::vector<QStringView> titlesOf(const std::vector<const LiveWindow *> &windows)
    {
        std::vector<QStringView> titles;
        for (const LiveWindow *window : windows)
            titles.push_back(window->title);
        return titles;
    }

    /// `highest` is the score that none can exceed.
    Windows::iterator find(const Rect &saved, double highest)
    {
        auto best = m_windows.end();
        double bestScore = 0;
        for (auto window = m_windows.begin(); window != m_windows.end(); ++window) {
            const double score =
                (m_isRelated[window->title] ? 0.5 : 0) + sizeScore(saved, window->frame);
            if (best == m_windows.end() || score > bestScore) {
                best = window;
                bestScore = score;
                if (score >= highest)
                    break;
            }
        }
        return best;
    }

    SortedTitles m_titles;
    std::vector<char> m_isRelated; ///< for each title whether it is to the record at hand
    Windows m_windows;
};

/// By application, without those that are taken.
std::map<QStringView, Leftovers> leftovers(const std::vector<LiveWindow> &live,
                                           const std::vector<bool> &isTaken)
{
    std::map<QStringView, std::vector<const LiveWindow *>> windows;
    for (std::size_t i = 0; i < live.size(); ++i) {
        if (!isTaken[i])
            windows[live[i].bundleID].push_back(&live[i]);
    }
    return {windows.begin(), windows.end()};
}

} // namespace

std::vector<MatchResult> match(const std::vector<WindowRecord> &records,
                               const std::vector<LiveWindow> &live)
{
    std::vector<MatchResult> results;
    results.reserve(records.size());
    // An exact match of a later record wins over a scored one of an earlier record, hence two
    // passes over all records.
    ByTitle byTitle(live);
    std::vector<bool> isTaken(live.size());
    for (const WindowRecord &record : records) {
        const auto place = byTitle.take(record);
        results.push_back({record, place ? std::optional(live[*place].id) : std::nullopt});
        if (place)
            isTaken[*place] = true;
    }
    auto rest = leftovers(live, isTaken);
    for (MatchResult &result : results) {
        const auto application = rest.find(result.record.bundleID);
        if (!result.liveID && application != rest.end())
            result.liveID = application->second.takeBest(result.record);
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
    const bool isRelated =
        !record.title.isEmpty()
        && (record.title.startsWith(chosen.title) || chosen.title.startsWith(record.title));
    if (isRelated)
        return MatchReason::Prefix;
    const double score = sizeScore(record.frame, chosen.frame);
    return isOnly([&](const LiveWindow &window) {
        return sizeScore(record.frame, window.frame) >= score;
    })
               ? MatchReason::Size
               : MatchReason::Order;
}

} // namespace Panorel::WindowMatcher
