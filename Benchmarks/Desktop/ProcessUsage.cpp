#include "Desktop/ProcessUsage.h"

#include "Support/TestHome.h"

#include <QDirIterator>
#include <QRegularExpression>

namespace Panorel::Bench {

namespace {

/// The number that follows "name:" in a file of the proc file system.
double number(const QString &path, const char *name)
{
    const QRegularExpression line(QStringLiteral("^%1:\\s+(\\d+)").arg(QLatin1String(name)),
                                  QRegularExpression::MultilineOption);
    return line.match(QString::fromLatin1(readFile(path))).captured(1).toDouble();
}

} // namespace

ProcessUsage ProcessUsage::of(qint64 process)
{
    ProcessUsage usage;
    QDirIterator threads(QStringLiteral("/proc/%1/task").arg(process),
                         QDir::Dirs | QDir::NoDotAndDotDot);
    while (threads.hasNext()) {
        const QString thread = threads.next();
        usage.processorMs +=
            readFile(thread + QStringLiteral("/schedstat")).split(' ').value(0).toDouble() / 1e6;
        usage.wakeUps += number(thread + QStringLiteral("/status"), "voluntary_ctxt_switches");
    }
    return usage;
}

ProcessMemory ProcessMemory::of(qint64 process)
{
    const QString memory = QStringLiteral("/proc/%1/smaps_rollup").arg(process);
    return {number(memory, "Rss") / 1024, number(memory, "Pss") / 1024};
}

} // namespace Panorel::Bench
