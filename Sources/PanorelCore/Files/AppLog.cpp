#include "PanorelCore/Files/AppLog.h"

#include "PanorelCore/Files/Paths.h"
#include "PanorelCore/JSON/PanorelJSON.h"

#include <QFile>

#include <cstdio>

namespace Panorel {

AppLog &AppLog::shared()
{
    static const SystemClock clock;
    static AppLog log(clock);
    return log;
}

AppLog::AppLog(const Clock &clock) : m_clock(clock)
{
    m_queue.setObjectName(QStringLiteral("panorel.log"));
    m_queue.setMaxThreadCount(1); // one thread makes the pool a serial queue
}

AppLog::~AppLog()
{
    flush();
}

void AppLog::log(const QString &message)
{
    const QString line =
        QStringLiteral("[%1] %2\n").arg(PanorelJSON::iso().string(m_clock.now()), message);
    m_queue.start([this, bytes = line.toUtf8()] { append(bytes); });
}

void AppLog::flush()
{
    m_queue.waitForDone();
}

void AppLog::append(const QByteArray &line)
{
    QFile file(Paths::file(QStringLiteral("app.log")));
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Append,
                                   QFileDevice::ReadOwner | QFileDevice::WriteOwner)
                         && file.write(line) == line.size() && file.flush();
    if (!written && !m_reportedLoss.exchange(true))
        std::fprintf(stderr, "panorel: cannot write the log %s: %s\n", qPrintable(file.fileName()),
                     qPrintable(file.errorString()));
}

} // namespace Panorel
