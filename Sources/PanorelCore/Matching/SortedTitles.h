#pragma once

#include <QStringView>

#include <optional>
#include <vector>

namespace Panorel {

/// Texts in order, each once, to be asked which of them begin with a text or are its beginning.
/// An answer compares few of them, however alike they are.
class SortedTitles {
public:
    /// The texts must outlive this.
    explicit SortedTitles(std::vector<QStringView> titles);

    std::size_t size() const { return m_titles.size(); }

    /// The place of one of the texts.
    std::size_t placeOf(QStringView title) const;

    /// The places of those texts of which one, the text or `title`, begins with the other.
    std::vector<std::size_t> related(QStringView title) const;

private:
    /// The longest text before `place` that `title`, which belongs at `place`, begins with.
    std::optional<std::size_t> beginningOf(QStringView title, std::size_t place) const;

    std::vector<QStringView> m_titles;
    std::vector<std::optional<std::size_t>> m_beginnings; ///< for each the longest of the others
};

} // namespace Panorel
