#include "PanorelCore/Desks/ConfigID.h"

#include <QCryptographicHash>

#include <algorithm>

namespace Panorel::ConfigID {

QString compute(const QStringList &edidUUIDs)
{
    QStringList identifiers;
    for (const QString &identifier : edidUUIDs)
        identifiers.append(identifier.toUpper());
    std::stable_sort(identifiers.begin(), identifiers.end());
    // A fingerprint, not a safeguard: MD5 serves.
    const auto digest = QCryptographicHash::hash(identifiers.join(QLatin1Char('|')).toUtf8(),
                                                 QCryptographicHash::Md5);
    return QString::fromLatin1(digest.toHex());
}

} // namespace Panorel::ConfigID
