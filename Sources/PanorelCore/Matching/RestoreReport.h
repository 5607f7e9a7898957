#pragma once

#include <QString>
#include <QStringList>

namespace Panorel {

/// What one restore did.
struct RestoreReport {
    qint64 restored = 0; ///< windows moved and found in place
    qint64 failed = 0;   ///< windows matched but not found in place
    qint64 skipped = 0;  ///< saved windows not attempted: rule, application or window not there
    double duration = 0; ///< seconds
    QStringList notes;   ///< one line per failed or skipped item, in the order they arose

    /// For example "3/5 restored, 1 failed, 1 skipped, 0.42s".
    QString summary() const;
};

} // namespace Panorel
