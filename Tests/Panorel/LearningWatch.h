#pragma once

#include <QStringList>

namespace Panorel {

/// Follows by the program's log what it may learn.
class LearningWatch {
public:
    /// The first thing learned that should not have been, in what was logged since the last call.
    QString read(const QStringList &lines, bool mayBeUsersWish)
    {
        m_learnedLast = m_restored = m_learnedBeforeSettled = false;
        bool hasSettled = false;
        for (const QString &line : lines) {
            const auto says = [&](const char *begin) {
                return line.startsWith(QLatin1String(begin));
            };
            if (says("learned layout: ")) {
                m_learnedLast = true;
                m_learnedBeforeSettled |= !hasSettled;
                if (m_isWaiting && !mayBeUsersWish)
                    return QStringLiteral("a layout that waits for the user was overwritten");
                if (m_isEnding && !mayBeUsersWish)
                    return QStringLiteral("a layout was overwritten while the session ended");
            } else if (says("session: it goes on")) {
                m_isEnding = false;
            } else if (says("learn: waiting")) {
                m_isWaiting = true;
            } else if (says("display settled") || says("restore report")
                       || says("hotkey: layout saved")) {
                m_isWaiting = m_learnedLast = false;
                m_restored |= says("restore report");
                hasSettled |= says("display settled");
            }
        }
        return {};
    }

    /// Whether nothing else is known to have happened since the last thing learned.
    bool hasLearnedLast() const { return m_learnedLast; }
    /// Whether something was learned before the displays settled, if they did.
    bool hasLearnedBeforeSettled() const { return m_learnedBeforeSettled; }
    bool hasRestored() const { return m_restored; }
    void sessionEnds() { m_isEnding = true; }
    void programStarts() { m_isWaiting = m_isEnding = false; }

private:
    bool m_isWaiting = false;
    bool m_isEnding = false;
    bool m_learnedLast = false;
    bool m_learnedBeforeSettled = false;
    bool m_restored = false;
};

} // namespace Panorel
