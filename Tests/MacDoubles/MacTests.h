#pragma once

#include "MacDoubles/Desktop/MacDesktop.h"

#include <QTest>
#include <QThread>

namespace Panorel::MacDoubles {

/// Tests that fail by what they leave behind. Objects of Objective-C that are never released, the
/// sanitizer reports at the program's end.
class MacTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { resetDesktop(); }
    void cleanup()
    {
        QCoreApplication::processEvents();
        QCOMPARE(takeRemains(), QStringList());
    }
};

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
    const QStringList left = takeRemains();
    if (!left.isEmpty())
        qCritical("left behind: %s", qPrintable(left.join(u' ')));
    return failures + int(left.size());
}

} // namespace Panorel::MacDoubles
