#include "PanorelCore/Files/AppLog.h"

#include "PanorelCore/Files/Paths.h"
#include "PanorelCore/JSON/PanorelJSON.h"

#include <QFile>

#include <cstdio>
#include <utility>

namespace Panorel {

namespace {

/// A full disk or a kill may have cut off the line before; it keeps its rest of a line to itself.
bool endsInALine(QFile &file)
{
    const qint64 end = file.size();
    return end == 0 || !file.seek(end - 1) || file.read(1) == "\n";
}

bool write(QFile &file, const QByteArray &lines)
{
    Paths::keepPrivate(file);
    const QByteArray bytes = endsInALine(file) ? lines : '\n' + lines;
    return file.write(bytes) == bytes.size() && file.flush();
}

} // namespace

AppLog &AppLog::shared()
{
    static const SystemClock clock;
    static AppLog log(clock);
    return log;
}

AppLog::AppLog(const Clock &clock) : m_clock(clock) {}

AppLog::~AppLog()
{
    {
        const std::scoped_lock lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_all();
    m_writer.join();
}

void AppLog::log(const QString &message)
{
    const QString line =
        QStringLiteral("[%1] %2\n").arg(PanorelJSON::iso().string(m_clock.now()), message);
    {
        const std::scoped_lock lock(m_mutex);
        m_lines += line.toUtf8();
    }
    m_changed.notify_all();
}

void AppLog::flush()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_lines.isEmpty(); });
}

void AppLog::writeAll()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return m_isEnding || !m_lines.isEmpty(); });
        if (m_lines.isEmpty())
            return;
        const QByteArray lines = m_lines;
        lock.unlock();
        append(lines);
        lock.lock();
        m_lines.remove(0, lines.size());
        m_changed.notify_all();
    }
}

void AppLog::append(const QByteArray &lines)
{
    QFile file(Paths::file(QStringLiteral("app.log")));
    const bool written = file.open(QIODevice::ReadWrite | QIODevice::Append,
                                   QFileDevice::ReadOwner | QFileDevice::WriteOwner)
                         && write(file, lines);
    if (!written && !std::exchange(m_reportedLoss, true))
        std::fprintf(stderr, "panorel: cannot write the log %s: %s\n", qPrintable(file.fileName()),
                     qPrintable(file.errorString()));
}

} // namespace Panorel
