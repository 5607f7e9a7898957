#include "PanorelX11/DesktopPicture/XfcePicture.h"

#include "PanorelX11/Displays/RandR.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QRegularExpression>
#include <QSet>

#include <stdexcept>

namespace Panorel::X11 {

namespace {

const QString channel = QStringLiteral("xfce4-desktop");
const QString base = QStringLiteral("/backdrop/screen0");

QDBusMessage call(const QString &method, const QVariantList &arguments)
{
    auto message = QDBusMessage::createMethodCall(QStringLiteral("org.xfce.Xfconf"),
                                                  QStringLiteral("/org/xfce/Xfconf"),
                                                  QStringLiteral("org.xfce.Xfconf"), method);
    message.setArguments(arguments);
    return message;
}

void store(const QString &property, const QVariant &value)
{
    QDBusConnection::sessionBus().send(
        call(QStringLiteral("SetProperty"),
             {channel, property, QVariant::fromValue(QDBusVariant(value))}));
}

/// "<base>/monitorNAME/workspaceN" of each display and workspace with a picture.
QSet<QString> knownBackdrops(const QVariantMap &properties)
{
    static const QRegularExpression picture(
        QStringLiteral(R"(\A(%1/monitor[^/]+/workspace\d+)/last-image\z)").arg(base));
    QSet<QString> backdrops;
    for (auto property = properties.begin(); property != properties.end(); ++property) {
        if (const auto match = picture.match(property.key()); match.hasMatch())
            backdrops.insert(match.captured(1));
    }
    return backdrops;
}

QSet<QString> connectedBackdrops()
{
    QSet<QString> backdrops;
    try {
        XConnection connection;
        for (const Monitor &monitor : RandR(connection).monitors())
            backdrops.insert(
                QStringLiteral("%1/monitor%2/workspace0").arg(base, monitor.connector));
    } catch (const std::runtime_error &) {
        // Without a server there are none.
    }
    return backdrops;
}

void show(const QString &path, const QVariantMap &properties)
{
    constexpr int zoomed = 5;
    for (const QString &backdrop : knownBackdrops(properties) | connectedBackdrops()) {
        // The style is the user's, but 0 would show no picture at all.
        const QString style = backdrop + QStringLiteral("/image-style");
        if (properties.value(style).toInt() == 0)
            store(style, zoomed);
        store(backdrop + QStringLiteral("/last-image"), path);
    }
}

} // namespace

void XfcePicture::set(const PictureFile &picture)
{
    const auto known = QDBusConnection::sessionBus().asyncCall(
        call(QStringLiteral("GetAllProperties"), {channel, base}));
    auto *answer = new QDBusPendingCallWatcher(known, &m_context);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &m_context,
                     [answer, path = picture.path()] {
                         // An error says that nothing is set yet, or that there is no such service;
                         // what is sent to nobody is lost.
                         const QDBusPendingReply<QVariantMap> reply = *answer;
                         show(path, reply.isError() ? QVariantMap() : reply.value());
                         answer->deleteLater();
                     });
}

} // namespace Panorel::X11
