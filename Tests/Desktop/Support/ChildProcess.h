#pragma once

#include <QProcess>
#include <QStringList>

#include <csignal>

namespace Panorel::Desktop {

/// A program that the test started and that never outlives it: it is ended by the destructor, and
/// by the kernel should the test itself die. Its standard error goes to the test's.
class ChildProcess {
public:
    explicit ChildProcess(const QString &program, const QStringList &arguments = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    bool running() const { return m_process.state() != QProcess::NotRunning; }
    qint64 processID() const { return m_process.processId(); }

    /// To set the environment or redirect before start().
    QProcess &process() { return m_process; }

    /// Fatal where the program can't be started: the test desktop is then not what it claims.
    void start();

    /// What it has printed so far, read to the first line feed; fatal when none comes.
    QString readLine();

    /// Ends it and waits: first as asked, after some seconds without mercy.
    void end();
    void killNow();

    /// What it says of errors is nobody's. Before start().
    void silence()
    {
        m_process.setProcessChannelMode(QProcess::SeparateChannels);
        m_process.setStandardErrorFile(QProcess::nullDevice());
    }

private:
    QProcess m_process;
};

/// A session bus of the test's own, ready when the constructor returns.
class SessionBus {
public:
    /// The daemon itself and not dbus-run-session: a wrapper that is ended leaves its children.
    SessionBus();

    const QString &address() const { return m_address; }

    /// It answers nothing any more.
    void stop() { ::kill(static_cast<pid_t>(m_daemon.processID()), SIGSTOP); }

private:
    ChildProcess m_daemon;
    QString m_address;
};

/// Runs a program to its end; fatal where it fails.
void run(const QString &program, const QStringList &arguments);

/// Whether the condition became true in time. Runs the event loop.
bool waitUntil(const std::function<bool()> &condition, int milliseconds = 10'000);

/// The same, but fatal with the description where it did not.
void require(const std::function<bool()> &condition, const char *description);

} // namespace Panorel::Desktop
