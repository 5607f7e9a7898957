#pragma once

#include "MacDoubles/C/AccessibilityManners.h"
#include "MacDoubles/Desktop/MacServices.h"
#include "Support/InMemoryPlatform.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace Panorel::MacDoubles {

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

/// A fault of the port against the documented rules of an interface: a call off the main thread,
/// an object released once too often and so on. The test that is running fails by it.
void addFault(const QString &fault);
QStringList takeFaults();

bool isMainThread();

} // namespace Panorel::MacDoubles
