#pragma once

#include "PanorelPorts/ScreensPort.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <set>

namespace Panorel::MacDoubles {

/// What the system's own services show and do beyond the in-memory platform. A test changes what
/// it likes, at any time.
struct MacServices {
    std::map<DisplayNumber, QString> pictures;   ///< the path of each screen's desktop picture
    std::set<DisplayNumber> keepingTheirPicture; ///< these screens refuse another one
    bool screenNumbersAreTexts = false;
    QStringList openedURLs;

    bool grantsCalendarAccess = true;  ///< what the user answers when asked
    int calendarRequests = 0;          ///< how often he was
    int eventStores = 0;               ///< how many were opened
    std::set<QString> cancelledEvents; ///< by title

    bool refusesLoginItems = false;
    bool updaterRuns = false;

    /// Of the menu bar's item, in the bottom-left space; absent where the bar has no screen.
    std::optional<Rect> statusItemFrame;
};

} // namespace Panorel::MacDoubles
