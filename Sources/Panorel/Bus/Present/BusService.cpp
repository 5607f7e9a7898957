#include "Panorel/Bus/Present/BusService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QJsonDocument>

namespace Panorel {

namespace {

const QString name = QStringLiteral("org.panorel.Panorel");
const QString path = QStringLiteral("/org/panorel/Panorel");

QString errorName(ExitStatus status)
{
    switch (status) {
    case ExitStatus::Usage:
        return name + QStringLiteral(".Error.Usage");
    case ExitStatus::NotFound:
        return name + QStringLiteral(".Error.NotFound");
    default:
        return name + QStringLiteral(".Error.Failed");
    }
}

/// Nobody waits for the answer: a bus that hangs, or goes just then, would hold up the program.
void tellBus(const char *method, const QVariantList &arguments)
{
    const QString bus = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage message = QDBusMessage::createMethodCall(
        bus, QStringLiteral("/org/freedesktop/DBus"), bus, QLatin1String(method));
    message.setArguments(arguments);
    QDBusConnection::sessionBus().send(message);
}

} // namespace

BusService::BusService(SessionBus::Service service) : m_service(std::move(service))
{
    new CommandsAdaptor(*this);
    new ApplicationAdaptor(*this);
    // The object first: who starts us by the name finds it.
    constexpr quint32 withoutQueueing = 4;
    if (QDBusConnection::sessionBus().registerObject(path, this))
        tellBus("RequestName", {name, withoutQueueing});
}

BusService::~BusService()
{
    tellBus("ReleaseName", {name});
    QDBusConnection::sessionBus().unregisterObject(path);
}

QString BusService::run(const CommandRequest &request)
{
    const CommandReply reply = m_service.run(request);
    if (reply.status == ExitStatus::Done)
        return QString::fromUtf8(QJsonDocument(reply.result).toJson(QJsonDocument::Indented));
    if (calledFromDBus())
        sendErrorReply(errorName(reply.status), reply.error);
    return {};
}

CommandsAdaptor::CommandsAdaptor(BusService &service)
    : QDBusAbstractAdaptor(&service), m_service(service)
{}

QString CommandsAdaptor::run(const char *verb, const std::vector<QString> &arguments, bool dryRun)
{
    return m_service.run({QLatin1String(verb), arguments, dryRun});
}

ApplicationAdaptor::ApplicationAdaptor(BusService &service)
    : QDBusAbstractAdaptor(&service), m_service(service)
{}

void ApplicationAdaptor::Activate(const QVariantMap &)
{
    m_service.openPanel();
}

/// Files mean nothing to the program.
void ApplicationAdaptor::Open(const QStringList &, const QVariantMap &)
{
    m_service.openPanel();
}

void ApplicationAdaptor::ActivateAction(const QString &action, const QVariantList &,
                                        const QVariantMap &)
{
    m_service.run({action, {}, false});
}

} // namespace Panorel
