#pragma once

#include "MacDoubles/Desktop/MacDesktop.h"

#include <QTest>

namespace Panorel::MacDoubles {

/// Tests that fail by what they leave behind. Objects that are never released, the sanitizer
/// reports at the program's end.
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

} // namespace Panorel::MacDoubles
