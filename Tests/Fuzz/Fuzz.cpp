#include "Fuzz/Fuzz.h"

#include <algorithm>
#include <stdexcept>

namespace Panorel::Fuzz {

namespace {

std::vector<const Target *> &registered()
{
    static std::vector<const Target *> all;
    return all;
}

} // namespace

Target::Target(const char *named, void (*checking)(const QByteArray &))
    : name(named), check(checking)
{
    registered().push_back(this);
}

const std::vector<const Target *> &targets()
{
    return registered();
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
