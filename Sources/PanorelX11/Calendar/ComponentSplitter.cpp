#include "PanorelX11/Calendar/ComponentSplitter.h"

#include <QByteArrayView>

namespace Panorel::X11 {

namespace {

constexpr std::size_t deepest = 4; // the calendar, an event, its alarm, and one to spare
constexpr qsizetype longestLine = 64 << 10;
constexpr qsizetype largestComponent = 1 << 20;

bool startsWith(QByteArrayView line, QByteArrayView keyword)
{
    return line.size() >= keyword.size()
           && qstrnicmp(line.data(), keyword.size(), keyword.data(), keyword.size()) == 0;
}

class Splitter {
public:
    SplitCalendar split(const QByteArray &text)
    {
        for (qsizetype at = 0; at < text.size();) {
            const qsizetype feed = text.indexOf('\n', at);
            const qsizetype end = feed < 0 ? text.size() : feed + 1;
            take(QByteArrayView(text).sliced(at, end - at));
            at = end;
        }
        m_result.isWellFormed = m_isCalendarSeen && m_isBalanced && m_open.empty();
        return std::move(m_result);
    }

private:
    void take(QByteArrayView line);
    void begin(const QByteArray &name);
    void end(const QByteArray &name);
    void append(QByteArrayView line);

    SplitCalendar m_result;
    std::vector<QByteArray> m_open; ///< the names of what has begun and not ended, outermost first
    QByteArray m_component;         ///< of the second level, as far as it was read
    qsizetype m_lineBegin = 0;      ///< in it, where the line began that may be folded
    bool m_isLineTooLong = false;
    bool m_isUsable = false; ///< the component
    bool m_isCalendarSeen = false;
    bool m_isBalanced = true;
};

void Splitter::take(QByteArrayView line)
{
    const bool isFolded = line.startsWith(' ') || line.startsWith('\t');
    if (!isFolded) {
        m_lineBegin = m_component.size();
        m_isLineTooLong = false;
    }
    const auto name = [&](qsizetype keyword) {
        return line.sliced(keyword).trimmed().toByteArray().toUpper();
    };
    if (startsWith(line, "BEGIN:"))
        begin(name(6));
    else if (startsWith(line, "END:"))
        end(name(4));
    else if (startsWith(line, "BEGIN") || startsWith(line, "END"))
        m_isBalanced = false; // no property's name begins so
    else
        append(line);
}

void Splitter::begin(const QByteArray &name)
{
    const bool isCalendar = name == "VCALENDAR";
    // What was open before it was cut off.
    if (isCalendar || (name == "VEVENT" && m_open.size() > 1)) {
        m_isBalanced = m_isBalanced && m_open.empty();
        m_open.resize(isCalendar ? 0 : 1);
        m_isCalendarSeen = true;
    }
    if (m_open.size() >= deepest) {
        m_isUsable = m_isBalanced = false;
        return;
    }
    m_open.push_back(name);
    if (m_open.size() == 2) {
        m_component.clear();
        m_isUsable = m_open.front() == "VCALENDAR";
    }
    append("BEGIN:" + name + "\r\n");
}

void Splitter::end(const QByteArray &name)
{
    if (m_open.empty() || m_open.back() != name) {
        m_isBalanced = false;
        return;
    }
    append("END:" + name + "\r\n");
    m_open.pop_back();
    if (m_open.size() != 1 || !m_isUsable)
        return;
    if (name == "VEVENT")
        m_result.events.push_back(m_component);
    else if (name == "VTIMEZONE")
        m_result.zones.push_back(m_component);
}

void Splitter::append(QByteArrayView line)
{
    if (m_open.size() < 2 || m_isLineTooLong || !m_isUsable)
        return;
    m_component.append(line);
    if (m_component.size() - m_lineBegin > longestLine) {
        m_component.truncate(m_lineBegin);
        m_isLineTooLong = true;
    } else if (m_component.size() > largestComponent) {
        m_isUsable = m_isBalanced = false;
    }
}

} // namespace

SplitCalendar SplitCalendar::split(const QByteArray &text)
{
    return Splitter().split(text);
}

} // namespace Panorel::X11
