#include "Desktop/Support/ChildProcess.h"

#include <QTest>

#include <csignal>
#include <sys/prctl.h>

namespace Panorel::Desktop {

ChildProcess::ChildProcess(const QString &program, const QStringList &arguments)
{
    m_process.setProgram(program);
    m_process.setArguments(arguments);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
}

ChildProcess::~ChildProcess()
{
    end();
}

void ChildProcess::start()
{
    m_process.start();
    if (!m_process.waitForStarted())
        qFatal("cannot start %s: %s", qPrintable(m_process.program()),
               qPrintable(m_process.errorString()));
}

QString ChildProcess::readLine()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(20'000))
            qFatal("%s printed nothing", qPrintable(m_process.program()));
    }
    return QString::fromUtf8(m_process.readLine()).trimmed();
}

void ChildProcess::end()
{
    if (!running())
        return;
    m_process.terminate();
    ::kill(static_cast<pid_t>(processID()), SIGCONT); // or one that is stopped would not hear it
    if (!m_process.waitForFinished(5'000))
        killNow();
}

void ChildProcess::killNow()
{
    m_process.kill();
    m_process.waitForFinished(5'000);
}

SessionBus::SessionBus()
    : m_daemon(QStringLiteral("dbus-daemon"),
               QStringLiteral("--session --nofork --nopidfile --print-address=1").split(u' '))
{
    m_daemon.silence();
    m_daemon.start();
    m_address = m_daemon.readLine();
}

bool waitUntil(const std::function<bool()> &condition, int milliseconds)
{
    return QTest::qWaitFor(condition, milliseconds);
}

void require(const std::function<bool()> &condition, const char *description)
{
    if (!waitUntil(condition, 20'000))
        qFatal("the test desktop did not come to: %s", description);
}

void run(const QString &program, const QStringList &arguments)
{
    ChildProcess child(program, arguments);
    child.process().setStandardOutputFile(QProcess::nullDevice());
    child.start();
    if (!child.process().waitForFinished(10'000) || child.process().exitCode() != 0)
        qFatal("%s %s failed", qPrintable(program), qPrintable(arguments.join(u' ')));
}

} // namespace Panorel::Desktop
