#include "Panorel/RequestServer.h"

#include <QDeadlineTimer>
#include <QLocalSocket>
#include <QSocketNotifier>

namespace Panorel {

RequestServer::RequestServer(Handler handler) : m_handler(std::move(handler))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &RequestServer::acceptAll);
    m_listenAgain.setInterval(listenAgainMilliseconds);
    connect(&m_listenAgain, &QTimer::timeout, this, &RequestServer::listenAgain);
}

RequestServer::~RequestServer()
{
    while (!m_clients.empty())
        drop(m_clients.front());
}

bool RequestServer::listen(const QString &path)
{
    m_path = path;
    QLocalServer::removeServer(path);
    if (!m_server.listen(path))
        return false;
    // The server closes itself where it can't accept a connection; its notifier's end alone tells.
    if (const auto *notifier = m_server.findChild<QSocketNotifier *>())
        connect(notifier, &QObject::destroyed, &m_listenAgain, qOverload<>(&QTimer::start));
    return true;
}

void RequestServer::listenAgain()
{
    if (m_server.isListening() || listen(m_path))
        m_listenAgain.stop();
}

void RequestServer::acceptAll()
{
    while (QLocalSocket *client = m_server.nextPendingConnection()) {
        // The oldest has had the longest time to say something.
        if (m_clients.size() >= maximumClients)
            drop(m_clients.front());
        m_clients.push_back(client);
        client->setReadBufferSize(maximumRequest);
        auto *patience = new QTimer(client);
        patience->setSingleShot(true);
        connect(patience, &QTimer::timeout, this,
                [this, client, patience] { expire(client, patience); });
        patience->start(patienceMilliseconds);
        connect(client, &QLocalSocket::readyRead, this,
                [this, client, patience] { read(client, patience); });
        connect(client, &QLocalSocket::disconnected, this, [this, client] { drop(client); });
        read(client, patience);
    }
}

void RequestServer::read(QLocalSocket *client, QTimer *patience)
{
    if (!client->canReadLine()) {
        if (client->bytesAvailable() >= maximumRequest)
            drop(client);
        return;
    }
    disconnect(client, &QLocalSocket::readyRead, this, nullptr); // one request each
    const QString request = QString::fromUtf8(client->readLine(maximumRequest + 1)).trimmed();
    patience->stop(); // what the handler takes is not the client's doing
    client->write(m_handler(request).toUtf8() + '\n');
    patience->start();
    client->disconnectFromServer(); // once the reply has left
}

/// While somebody else's request was carried out, this one may have come without being seen.
void RequestServer::expire(QLocalSocket *client, QTimer *patience)
{
    client->waitForReadyRead(0);
    const bool hasJustAsked = patience->isActive();
    if (!hasJustAsked)
        drop(client);
}

void RequestServer::drop(QLocalSocket *client)
{
    if (std::erase(m_clients, client) == 0)
        return;
    disconnect(client, nullptr, this, nullptr);
    client->abort();
    client->deleteLater();
}

ServerAnswer askServer(const QString &path, const QString &request, int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    const auto left = [&] { return int(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.setReadBufferSize(RequestServer::maximumReply);
    socket.connectToServer(path);
    if (!socket.waitForConnected(left()))
        return {};
    ServerAnswer answer{true, {}};
    socket.write(request.toUtf8() + '\n');
    while (!socket.canReadLine()) {
        if (socket.bytesAvailable() >= RequestServer::maximumReply
            || !socket.waitForReadyRead(left()))
            return answer;
    }
    answer.reply = QString::fromUtf8(socket.readLine()).trimmed();
    return answer;
}

} // namespace Panorel
