#include "Panorel/RequestServer.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QTimer>

namespace Panorel {

RequestServer::RequestServer(Handler handler) : m_handler(std::move(handler))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &RequestServer::acceptAll);
}

RequestServer::~RequestServer()
{
    while (!m_clients.empty())
        drop(m_clients.front());
}

bool RequestServer::listen(const QString &path)
{
    QLocalServer::removeServer(path);
    return m_server.listen(path);
}

void RequestServer::acceptAll()
{
    while (QLocalSocket *client = m_server.nextPendingConnection()) {
        // The oldest has had the longest time to say something.
        if (m_clients.size() >= maximumClients)
            drop(m_clients.front());
        m_clients.push_back(client);
        client->setReadBufferSize(maximumRequest);
        connect(client, &QLocalSocket::readyRead, this, [this, client] { read(client); });
        connect(client, &QLocalSocket::disconnected, this, [this, client] { drop(client); });
        QTimer::singleShot(patienceMilliseconds, client, [this, client] { drop(client); });
        read(client);
    }
}

void RequestServer::read(QLocalSocket *client)
{
    if (!client->canReadLine()) {
        if (client->bytesAvailable() >= maximumRequest)
            drop(client);
        return;
    }
    disconnect(client, &QLocalSocket::readyRead, this, nullptr); // one request each
    const QString request = QString::fromUtf8(client->readLine(maximumRequest + 1)).trimmed();
    client->write(m_handler(request).toUtf8() + '\n');
    client->disconnectFromServer(); // once the reply has left
}

void RequestServer::drop(QLocalSocket *client)
{
    if (std::erase(m_clients, client) == 0)
        return;
    disconnect(client, nullptr, this, nullptr);
    client->abort();
    client->deleteLater();
}

std::optional<QString> askServer(const QString &path, const QString &request, int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    const auto left = [&] { return int(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.setReadBufferSize(RequestServer::maximumRequest);
    socket.connectToServer(path);
    if (!socket.waitForConnected(left()))
        return {};
    socket.write(request.toUtf8() + '\n');
    while (!socket.canReadLine()) {
        if (socket.bytesAvailable() >= RequestServer::maximumRequest
            || !socket.waitForReadyRead(left()))
            return {};
    }
    return QString::fromUtf8(socket.readLine()).trimmed();
}

} // namespace Panorel
