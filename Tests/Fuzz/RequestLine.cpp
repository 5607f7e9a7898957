#include "Panorel/RequestServer.h"

#include "Fuzz/Fuzz.h"

#include <QCoreApplication>
#include <QLocalSocket>
#include <QTemporaryDir>

using namespace Panorel;
using Fuzz::require;

namespace {

/// A server that repeats what it hears.
struct Listener {
    QStringList heard;
    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("s"));
    RequestServer server{[this](const QString &request) {
        heard.append(request);
        return QStringLiteral("heard");
    }};

    Listener() { require(server.listen(path), "a socket can be made"); }
};

/// The first byte says in pieces of how many bytes the rest is sent; then the client hangs up.
void check(const QByteArray &input)
{
    static int count = 0;
    if (!QCoreApplication::instance())
        new QCoreApplication(count, nullptr); // for ever
    static Listener listener;
    listener.heard.clear();
    Fuzz::Input parts(input);
    const qsizetype piece = 1 + parts.number<quint8>();
    const QByteArray sent = parts.rest();

    QLocalSocket client;
    client.connectToServer(listener.path);
    require(client.waitForConnected(5000), "somebody listens");
    for (qsizetype at = 0; at < sent.size() && at < 3 * RequestServer::maximumRequest;
         at += piece * 16) {
        client.write(sent.mid(at, piece * 16));
        QCoreApplication::processEvents();
    }
    const bool isRequest = sent.left(RequestServer::maximumRequest).contains('\n');
    if (isRequest) {
        while (client.state() != QLocalSocket::UnconnectedState)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // Whoever goes on talking may miss it.
        require(client.readAll() == "heard\n" || sent.indexOf('\n') + 1 < sent.size(),
                "a request gets one line");
    }
    client.abort();
    QCoreApplication::processEvents();
    require(listener.heard.size() == (isRequest ? 1 : 0), "one line is one request");
    for (const QString &request : std::as_const(listener.heard))
        require(request == QString::fromUtf8(sent.left(sent.indexOf('\n'))).trimmed()
                    && request.isValidUtf16(),
                "a request is heard as it was sent");
}

const Fuzz::Target target("RequestLine", check);

} // namespace
