#pragma once

#include "MacDoubles/Desktop/MacDesktop.h"
#include "MacDoubles/ObjC/ObjectLedger.h"

#include <QTest>

namespace Panorel::MacDoubles {

/// Tests that fail by what they leave behind. They are to run in two passes: what grows in the
/// first, the libraries may have built once to keep.
class LedgerTests : public QObject {
    Q_OBJECT

public:
    static inline bool isSecondPass = false;

    QStringList remains()
    {
        QCoreApplication::processEvents();
        const QStringList grown = m_ledger->finish();
        m_ledger.reset();
        return isSecondPass ? takeRemains() + grown : takeRemains();
    }

public Q_SLOTS:
    void init()
    {
        resetDesktop();
        m_ledger.emplace();
    }
    void cleanup() { QCOMPARE(remains(), QStringList()); }

private:
    std::optional<ObjectLedger> m_ledger;
};

} // namespace Panorel::MacDoubles
