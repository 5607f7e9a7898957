#include "Panorel/SingleInstance.h"

#include "Support/TestDataDir.h"

#include <QLocalSocket>
#include <QProcess>
#include <QSocketNotifier>
#include <QTest>

#include <cstdio>
#include <unistd.h>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

/// A start of the program: this test program in another role. It says "runs" and goes on until its
/// input ends, or says "told" and ends, or gives the reason why it can't.
class Start : public QProcess {
public:
    Start()
    {
        setProcessChannelMode(QProcess::MergedChannels);
        start(QCoreApplication::applicationFilePath(), {QStringLiteral("--start")});
    }
    ~Start() override
    {
        closeWriteChannel();
        waitForFinished();
    }

    /// Its first line; the event loop runs meanwhile.
    QString outcome()
    {
        if (!QTest::qWaitFor([this] { return canReadLine(); }, 10'000))
            return QStringLiteral("nothing");
        return QString::fromUtf8(readLine()).trimmed();
    }
    void killNow()
    {
        kill();
        waitForFinished();
    }
};

const QString runs = QStringLiteral("runs");
const QString told = QStringLiteral("told");

int runStart()
{
    try {
        const auto instance = SingleInstance::acquire();
        std::puts(instance ? "runs" : "told");
        std::fflush(stdout);
        if (!instance)
            return 0;
        instance->setRequestHandler([](const QString &request) { return request + request; });
        QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
        QObject::connect(&input, &QSocketNotifier::activated, QCoreApplication::instance(),
                         &QCoreApplication::quit);
        return QCoreApplication::exec();
    } catch (const std::runtime_error &error) {
        std::puts(error.what());
        return 1;
    }
}

/// One data directory and one runtime directory.
struct Session {
    Session() { qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path())); }
    ~Session() { qunsetenv("XDG_RUNTIME_DIR"); }

    QString socket() const
    {
        const QDir directory(runtime.path());
        const QStringList sockets = directory.entryList({QStringLiteral("*.socket")}, QDir::System);
        return sockets.isEmpty() ? QString() : directory.filePath(sockets.first());
    }

    QTemporaryDir runtime;
    TestDataDir data;
};

} // namespace

class SingleInstanceTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFurtherStartOpensThePanelOfTheFirst()
    {
        const Session session;
        const auto first = SingleInstance::acquire();
        QCOMPARE(Start().outcome(), told);
        QCoreApplication::processEvents();
        int opened = 0;
        first->setActivatedCallback([&] { ++opened; }); // one that came too early is remembered
        QTRY_COMPARE(opened, 1);
        QCOMPARE(Start().outcome(), told);
        QTRY_COMPARE(opened, 2);
        const auto files = QDir(session.runtime.path()).entryInfoList(QDir::Files | QDir::System);
        QCOMPARE(files.size(), 2);
        for (const QFileInfo &file : files)                                 // only the user gets in
            QVERIFY(!(file.permissions() & ~(QFile::Permissions(0x7700)))); // owner, user
    }

    void afterACrashTheNextStartRunsAndAnswers()
    {
        const Session session;
        Start killed;
        QCOMPARE(killed.outcome(), runs);
        killed.killNow();
        QVERIFY(!session.socket().isEmpty()); // left behind
        QVERIFY(!SingleInstance::ask(QStringLiteral("status"), 5s).isRunning);
        Start next;
        QCOMPARE(next.outcome(), runs);
        QCOMPARE(Start().outcome(), told);
        const QString request(20'000, u'\u00fc');
        QCOMPARE(SingleInstance::ask(request, 5s).reply, request + request);
    }

    void ofManyStartsAtOnceExactlyOneRuns()
    {
        const Session session;
        for (int round = 0; round < 10; ++round) {
            std::list<Start> starts(4);
            QStringList outcomes;
            for (Start &start : starts)
                outcomes.append(start.outcome());
            outcomes.sort();
            QCOMPARE(outcomes, QStringList({runs, told, told, told}));
            for (Start &start : starts)
                start.killNow(); // so that the next round finds what a crash leaves
        }
    }

    void aProgramThatHangsIsReportedInTime()
    {
        const Session session;
        const auto hanging = SingleInstance::acquire(); // no event loop runs here
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, (void)SingleInstance::acquire(100ms));
        const auto answer = SingleInstance::ask(QStringLiteral("status"), 100ms);
        QVERIFY(answer.isRunning && !answer.reply);
    }

    void withoutARuntimeDirectoryTheDataDirectoryServes()
    {
        const Session session;
        for (const char *unusable : {"", "relative", "/nowhere/at/all"}) {
            qputenv("XDG_RUNTIME_DIR", unusable);
            const auto first = SingleInstance::acquire();
            QVERIFY(session.data.names().contains(QStringLiteral("instance.lock")));
            QCOMPARE(Start().outcome(), told);
        }
    }

    void aSilentClientHoldsUpNobody()
    {
        const Session session;
        const auto first = SingleInstance::acquire();
        QLocalSocket client;
        client.connectToServer(session.socket());
        client.write("open-panel"); // no line feed
        QCOMPARE(Start().outcome(), told);
        QTRY_COMPARE(client.state(), QLocalSocket::UnconnectedState);
    }
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (application.arguments().contains(QStringLiteral("--start")))
        return runStart();
    SingleInstanceTests tests;
    return QTest::qExec(&tests, argc, argv);
}

#include "SingleInstanceTests.moc"
