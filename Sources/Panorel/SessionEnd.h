#pragma once

#include <QObject>

#include <functional>

namespace Panorel {

/// Tells, before the first window closes, that the session or the program is about to end: the
/// session manager says so, the system shuts down, or the user quits.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    /// `ending` may be called more than once. Needs a QGuiApplication.
    explicit SessionEnd(std::function<void()> ending);

private Q_SLOTS:
    void prepareForShutdown(bool begins);

private:
    std::function<void()> m_ending;
};

} // namespace Panorel
