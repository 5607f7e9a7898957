#include "Panorel/Bus/Present/TrayWatcher.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace Panorel {

namespace {

using namespace std::chrono_literals;

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");

} // namespace

TrayWatcher::TrayWatcher(std::function<void()> ready)
    : m_ready(std::move(ready)), m_serviceWatcher(service, QDBusConnection::sessionBus(),
                                                  QDBusServiceWatcher::WatchForRegistration)
{
    // From any sender: to find out whose the service is would wait for the bus. A wrong one only
    // has us ask.
    QDBusConnection::sessionBus().connect(QString(), path, service,
                                          QStringLiteral("StatusNotifierHostRegistered"), this,
                                          SLOT(askForHost()));
    connect(&m_serviceWatcher, &QDBusServiceWatcher::serviceRegistered, this,
            &TrayWatcher::askForHost);
    m_limit.setSingleShot(true);
    connect(&m_limit, &QTimer::timeout, this, &TrayWatcher::finish);
    m_limit.start(1min);
    askForHost();
}

/// The service only keeps the list; an icon shows when a host is there that draws it.
void TrayWatcher::askForHost()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        service, path, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    question << service << QStringLiteral("IsStatusNotifierHostRegistered");
    question.setAutoStartService(false);
    auto *answer =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        answer->deleteLater();
        if (reply.isValid() && reply.value().variant().toBool())
            finish();
    });
}

void TrayWatcher::finish()
{
    m_limit.stop();
    if (const auto ready = std::exchange(m_ready, nullptr))
        ready();
}

} // namespace Panorel
