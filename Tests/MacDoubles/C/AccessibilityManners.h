#pragma once

#include "PanorelPorts/ProcessIdentifier.h"

#include <QString>
#include <QVariant>

#include <functional>
#include <map>
#include <set>

namespace Panorel::MacDoubles {

/// How applications answer the accessibility interface, beyond what their windows are.
struct AccessibilityManners {
    struct Answer {
        int error = 0;  ///< an AXError
        QVariant value; ///< as toCf() takes it; an invalid one is a null answer
    };
    /// By window number, 0 for any application and for the whole system, and attribute.
    std::map<std::pair<int, QString>, Answer> answers;
    std::set<ProcessIdentifier> hung; ///< they let every question wait
    bool isBlank = false;             ///< no application lists a window, as at the lock screen
    /// Called before every answer, when the application may just as well quit.
    std::function<void(const QString &attribute)> onQuestion;

    float timeOut = 0; ///< in seconds, as this program set it; 0: never
    int waits = 0;     ///< questions that were given up
    std::map<ProcessIdentifier, int> mainWindows;
};

} // namespace Panorel::MacDoubles
