#include "PanorelCore/Matching/RestoreReport.h"

namespace Panorel {

QString RestoreReport::summary() const
{
    return QStringLiteral("%1/%2 restored, %3 failed, %4 skipped, %5s")
        .arg(restored)
        .arg(restored + failed + skipped)
        .arg(failed)
        .arg(skipped)
        .arg(duration, 0, 'f', 2);
}

} // namespace Panorel
