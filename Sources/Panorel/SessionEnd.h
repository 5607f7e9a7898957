#pragma once

#include <QObject>

#include <functional>
#include <memory>

namespace Panorel {

/// Tells, before the first window closes, that the session or the program is about to end: the
/// session manager says so, the system shuts down, or the user quits.
class SessionEnd : public QObject {
    Q_OBJECT

public:
    /// `ending` may be called more than once. Needs a QGuiApplication.
    explicit SessionEnd(std::function<void()> ending);

private:
    std::function<void()> m_ending;
    std::unique_ptr<QObject> m_shutdown;
};

} // namespace Panorel
