#pragma once

#include <QCoreApplication>

#include <functional>

namespace Panorel::Mac {

/// From any thread: runs the function on the main thread, from the event loop. Dropped where the
/// application has gone.
inline void runOnMainThread(std::function<void()> function)
{
    if (QCoreApplication *application = QCoreApplication::instance())
        QMetaObject::invokeMethod(application, std::move(function), Qt::QueuedConnection);
}

} // namespace Panorel::Mac
