#include "MacDoubles/ObjC/ObjectLedger.h"

#import <Foundation/Foundation.h>
#import <Foundation/NSDebug.h>

#include <utility>

namespace Panorel::MacDoubles {

namespace {

std::map<QString, int> count()
{
    std::map<QString, int> counts{{QStringLiteral("block"), livingBlocks()}};
    Class *classes = GSDebugAllocationClassList();
    for (Class *one = classes; one && *one; ++one)
        counts[QString::fromLatin1(class_getName(*one))] = GSDebugAllocationCount(*one);
    NSZoneFree(NSDefaultMallocZone(), classes);
    return counts;
}

} // namespace

ObjectLedger::ObjectLedger()
{
    GSDebugAllocationActive(YES);
    m_before = count();
    m_pool = [[NSAutoreleasePool alloc] init];
}

ObjectLedger::~ObjectLedger()
{
    finish();
}

QStringList ObjectLedger::finish()
{
    [static_cast<NSAutoreleasePool *>(std::exchange(m_pool, nullptr)) release];
    QStringList grown;
    for (const auto &[name, now] : count()) {
        if (const int growth = now - m_before[name]; growth > 0)
            grown << QStringLiteral("%1 %2").arg(growth).arg(name);
    }
    return grown;
}

} // namespace Panorel::MacDoubles
