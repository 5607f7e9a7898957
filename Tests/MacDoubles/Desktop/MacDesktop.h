#pragma once

#include "Support/InMemoryPlatform.h"

#include <QStringList>
#include <QVariant>

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

    float timeOut = 0;  ///< in seconds, as this program set it; 0: never
    int waits = 0;      ///< questions that were given up
    int mainWindow = 0; ///< made so last
};

/// The Mac behind the doubles of Apple's interfaces: the doubles translate calls into the
/// in-memory platform, which tests furnish and read as they do everywhere else.
struct MacDesktop {
    InMemoryPlatform platform;
    AccessibilityManners manners;
    QVariantMap preferences;           ///< of other programs, by "domain key"
    bool isUnsynchronized = false;     ///< preferences were written and not yet handed over
    std::set<QString> cancelledEvents; ///< by title
    int launchObservers = 0;           ///< not yet removed
    QStringList faults;                ///< of the port against the documented rules of an interface
};

/// The one that the doubles read and change. A test starts with a fresh one.
MacDesktop &desktop();
void resetDesktop();

/// Lets the wall clock show that time, and the main queue run all that is due by it, cancellations
/// included. The clock starts at the epoch.
void runMainQueueUntil(Instant now);

/// Faults, and what a test left behind: CoreFoundation's objects, each by its type and value,
/// sources of the dispatch library, observers, unsynchronised preferences. Forgets the objects.
QStringList takeRemains();
QStringList takeLeaks();
std::size_t sourcesLeft();

} // namespace Panorel::MacDoubles
