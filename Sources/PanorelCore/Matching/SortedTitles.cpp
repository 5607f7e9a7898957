#include "PanorelCore/Matching/SortedTitles.h"

#include <algorithm>

namespace Panorel {

SortedTitles::SortedTitles(std::vector<QStringView> titles) : m_titles(std::move(titles))
{
    std::ranges::sort(m_titles);
    m_titles.erase(std::unique(m_titles.begin(), m_titles.end()), m_titles.end());
    m_beginnings.reserve(m_titles.size());
    for (std::size_t place = 0; place < m_titles.size(); ++place)
        m_beginnings.push_back(beginningOf(m_titles[place], place));
}

std::size_t SortedTitles::placeOf(QStringView title) const
{
    return std::size_t(std::ranges::lower_bound(m_titles, title) - m_titles.begin());
}

std::vector<std::size_t> SortedTitles::related(QStringView title) const
{
    std::vector<std::size_t> places;
    const std::size_t place = placeOf(title);
    for (auto beginning = beginningOf(title, place); beginning;
         beginning = m_beginnings[*beginning])
        places.push_back(*beginning);
    // In order, all that begin alike stand together.
    const auto first = m_titles.begin() + std::ptrdiff_t(place);
    const auto last = std::partition_point(
        first, m_titles.end(), [&](QStringView other) { return other.startsWith(title); });
    for (auto other = first; other != last; ++other)
        places.push_back(std::size_t(other - m_titles.begin()));
    return places;
}

std::optional<std::size_t> SortedTitles::beginningOf(QStringView title, std::size_t place) const
{
    // Whatever stands between a beginning and the text begins with it too.
    std::optional<std::size_t> candidate;
    if (place > 0)
        candidate = place - 1;
    while (candidate && !title.startsWith(m_titles[*candidate]))
        candidate = m_beginnings[*candidate];
    return candidate;
}

} // namespace Panorel
