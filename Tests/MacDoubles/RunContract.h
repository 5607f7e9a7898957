#pragma once

#include "MacDoubles/Desktop/MacDesktop.h"

#include <QTest>

namespace Panorel::MacDoubles {

/// Runs a contract suite on a fresh desktop; what it leaves behind fails it as well.
template <typename Contract, typename Rig> int runOnTheMac()
{
    resetDesktop();
    int failures = 0;
    {
        Rig rig;
        Contract contract(rig);
        failures = QTest::qExec(&contract);
    }
    for (const QString &left : takeRemains()) {
        qCritical("left behind: %s", qPrintable(left));
        ++failures;
    }
    return failures;
}

} // namespace Panorel::MacDoubles
