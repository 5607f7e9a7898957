#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>
#include <list>
#include <optional>

class QLocalSocket;
class QTimer;

namespace Panorel {

/// Answers other programs of the same user over a local socket. One line of UTF-8 is the request,
/// one line the reply, and then the connection ends. Nothing a client does, or leaves undone, takes
/// more than a bounded amount of memory and time from us.
class RequestServer : public QObject {
    Q_OBJECT

public:
    /// In bytes, line feed included.
    static constexpr qint64 maximumRequest = 64 * 1024;
    static constexpr qint64 maximumReply = 64 * 1024 * 1024;
    static constexpr std::size_t maximumClients = 16;
    /// With one client, until it has asked and again until it has taken the reply.
    static constexpr int patienceMilliseconds = 2000;
    static constexpr int listenAgainMilliseconds = 1000;

    /// The reply to a request, both without line feeds. May take its time, but must not run the
    /// event loop.
    using Handler = std::function<QString(const QString &request)>;

    explicit RequestServer(Handler handler);
    ~RequestServer() override;

    /// The caller has made sure that nobody else is to be heard under this path: what is left there
    /// is replaced. False where no socket can be made; then nobody reaches us. Where listening ends
    /// later, for want of descriptors, it begins again when there are some.
    bool listen(const QString &path);

private:
    void listenAgain();
    void acceptAll();
    void read(QLocalSocket *client, QTimer *patience);
    void expire(QLocalSocket *client, QTimer *patience);
    void drop(QLocalSocket *client);

    Handler m_handler;
    QString m_path;
    QTimer m_listenAgain; ///< runs while it does not listen any more
    QLocalServer m_server;
    std::list<QLocalSocket *> m_clients; ///< the oldest first; the server is their parent
};

struct ServerAnswer {
    bool wasAsked = false;        ///< a server was there and may have acted on the request
    std::optional<QString> reply; ///< absent: none came in time
};

/// Sends a request to the server at the path and waits for the reply. Runs no event loop.
ServerAnswer askServer(const QString &path, const QString &request, int milliseconds);

} // namespace Panorel
