#pragma once

#include "Support/InMemoryPlatform.h"

#include <QStringList>
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
    std::function<void()> onQuestion;

    float timeOut = 0; ///< in seconds, as this program set it; 0: never
    int waits = 0;     ///< questions that were given up
    std::map<ProcessIdentifier, int> mainWindows;
};

/// What the system's own services show and do beyond the in-memory platform.
struct MacServices {
    std::map<DisplayNumber, QString> pictures;   ///< the path of each screen's desktop picture
    std::set<DisplayNumber> keepingTheirPicture; ///< these screens refuse another one
    bool screenNumbersAreTexts = false;
    QStringList openedURLs;

    bool grantsCalendarAccess = true;  ///< what the user answers when asked
    int eventStores = 0;               ///< how many were opened
    std::set<QString> cancelledEvents; ///< by title

    bool updaterRuns = false;
    int observers = 0; ///< of launches, not yet removed

    /// Of the menu bar's item, in the bottom-left space; absent where the bar has no screen.
    std::optional<Rect> statusItemFrame;
};

/// The Mac behind the doubles of Apple's interfaces: the doubles translate calls into the
/// in-memory platform, which tests furnish and read as they do everywhere else.
struct MacDesktop {
    InMemoryPlatform platform;
    AccessibilityManners manners;
    QVariantList listedInFront; ///< further entries of the window list, of whatever type
    MacServices services;
};

/// The one that the doubles read and change. A test starts with a fresh one.
MacDesktop &desktop();
void resetDesktop();

/// Lets the wall clock show that time, and the main queue run all that is due by it, cancellations
/// included. The clock starts at the epoch.
void runMainQueueUntil(Instant now);

bool isMainThread();
/// For calls that the system allows on the main thread alone: expectMainThread(__func__).
void expectMainThread(const char *call);

/// A fault of the port against the documented rules of an interface: a call off the main thread,
/// an object released once too often and so on. The test that is running fails by it.
void addFault(const QString &fault);
QStringList takeFaults();

/// What a test left behind, each by its description, and forgets it: faults, hot keys and event
/// handlers, sources of the dispatch library, preferences that were written and not handed to the
/// system's daemon, CoreFoundation's objects, observers.
QStringList takeHeldHotKeys();
QStringList takeSources();
QStringList takeUnsynchronized();
QStringList takeLeaks();
QStringList takeRemains();

} // namespace Panorel::MacDoubles
