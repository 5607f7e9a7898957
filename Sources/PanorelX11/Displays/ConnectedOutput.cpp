#include "PanorelX11/Displays/ConnectedOutput.h"

#include <QCryptographicHash>
#include <QUuid>
#include <QtEndian>

namespace Panorel::X11 {

namespace {

/// Not qHash, which may change from one release to the next, while desks are stored for years.
std::uint32_t stableHash(const QString &text)
{
    const auto digest = QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256);
    return qFromBigEndian<std::uint32_t>(digest.constData());
}

QString displayUUID(const DisplayIdentity &identity, const QString &connector)
{
    static const QUuid space(QStringLiteral("{6ad2d9ae-7d5b-4f0a-9c6a-2f60b8f0b1c7}"));
    const QString text = QStringLiteral("%1/%2/%3/%4")
                             .arg(identity.vendorNumber)
                             .arg(identity.modelNumber)
                             .arg(identity.serialNumber)
                             .arg(connector);
    return QUuid::createUuidV5(space, text).toString(QUuid::WithoutBraces).toUpper();
}

} // namespace

bool ConnectedOutput::isBuiltin() const
{
    const auto begins = [this](QLatin1String kind) {
        return connector.startsWith(kind, Qt::CaseInsensitive);
    };
    return begins(QLatin1String("eDP")) || begins(QLatin1String("LVDS"))
           || begins(QLatin1String("DSI"));
}

QString ConnectedOutput::name() const
{
    // A panel calls itself by its part number.
    if (isBuiltin())
        return QStringLiteral("Built-in display");
    return edid && !edid->name.isEmpty() ? edid->name : connector;
}

DisplayIdentity ConnectedOutput::identity() const
{
    DisplayIdentity identity;
    identity.isBuiltin = isBuiltin();
    if (edid) {
        identity.vendorNumber = edid->vendor;
        identity.modelNumber = edid->model;
        identity.serialNumber = edid->serial;
    } else {
        identity.serialNumber = stableHash(connector);
    }
    identity.uuid = displayUUID(identity, connector);
    return identity;
}

} // namespace Panorel::X11
