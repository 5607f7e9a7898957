#pragma once

#include <QStringList>

#include <map>

namespace Panorel::MacDoubles {

/// Copies of blocks that are not yet released.
int livingBlocks();

/// Counts what is alive of each Objective-C class, and of blocks, from its making to finish().
/// What the libraries build once and keep grows once; what still grows when the same is done a
/// second time is a leak.
class ObjectLedger {
public:
    ObjectLedger();
    ~ObjectLedger();
    ObjectLedger(const ObjectLedger &) = delete;
    ObjectLedger &operator=(const ObjectLedger &) = delete;

    /// Releases what is autoreleased and gives what has grown, as "2 EKEvent". Once.
    QStringList finish();

private:
    std::map<QString, int> m_before;
    void *m_pool = nullptr;
};

} // namespace Panorel::MacDoubles
