#include "Fuzz/Fuzz.h"

#include <stdexcept>

namespace Panorel::Fuzz {

constinit std::vector<const Target *> targets; // before any target

Target::Target(const char *named, void (*checking)(const QByteArray &))
    : name(named), check(checking)
{
    targets.push_back(this);
}

void require(bool holds, const char *promise)
{
    if (!holds)
        throw std::logic_error(promise);
}

QByteArray Input::line()
{
    const qsizetype feed = m_rest.indexOf('\n');
    const QByteArray result = take(feed < 0 ? m_rest.size() : feed);
    take(1);
    return result;
}

QByteArray Input::take(qsizetype count)
{
    const QByteArray result = m_rest.left(count);
    m_rest = m_rest.mid(result.size());
    return result;
}

} // namespace Panorel::Fuzz
