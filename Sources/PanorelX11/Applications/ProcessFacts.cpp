#include "PanorelX11/Applications/ProcessFacts.h"

#include <QFile>

namespace Panorel::X11 {

namespace {

QByteArray readFile(const QString &path, qint64 maximumBytes)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? file.read(maximumBytes)
                                                                  : QByteArray();
}

/// When the process started, in the kernel's ticks; with the pid it tells two processes apart.
QByteArray startTime(const QString &folder)
{
    return startTimeIn(readFile(folder + QStringLiteral("stat"), 4096));
}

QString baseName(const QString &path)
{
    return path.section(QLatin1Char('/'), -1);
}

QString programName(const QString &folder)
{
    QString target = QFile::symLinkTarget(folder + QStringLiteral("exe"));
    // An update replaced the file under the running program.
    if (target.endsWith(QLatin1String(" (deleted)")))
        target.chop(10);
    return baseName(target);
}

} // namespace

std::optional<ProcessFacts> readProcessFacts(qint64 pid)
{
    if (pid <= 0)
        return {};
    const QString folder = QStringLiteral("/proc/%1/").arg(pid);
    const QByteArray started = startTime(folder);
    ProcessFacts facts;
    facts.pid = pid;
    facts.cgroup = readFile(folder + QStringLiteral("cgroup"), 16 * 1024);
    // Launchers append their variables, so they come last in what may be a large environment.
    readLauncher(readFile(folder + QStringLiteral("environ"), 2 * 1024 * 1024), facts);
    facts.executable = programName(folder);
    facts.argument0 = calledAs(readFile(folder + QStringLiteral("cmdline"), 4096));
    if (started.isEmpty() || startTime(folder) != started)
        return {};
    return facts;
}

QByteArray startTimeIn(const QByteArray &stat)
{
    // The second field, the program's name in parentheses, may hold blanks and parentheses.
    const QByteArrayList fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    return fields.value(19);
}

QString calledAs(const QByteArray &commandLine)
{
    return baseName(QString::fromUtf8(commandLine.split('\0').constFirst()));
}

void readLauncher(const QByteArray &environment, ProcessFacts &facts)
{
    static const QByteArray file = "GIO_LAUNCHED_DESKTOP_FILE=";
    static const QByteArray process = "GIO_LAUNCHED_DESKTOP_FILE_PID=";
    for (const QByteArray &variable : environment.split('\0')) {
        if (variable.startsWith(file))
            facts.launchedDesktopFile = QString::fromUtf8(variable.mid(file.size()));
        if (variable.startsWith(process)) {
            bool isNumber = false;
            const qint64 pid = variable.mid(process.size()).toLongLong(&isNumber);
            if (isNumber)
                facts.launched = pid;
        }
    }
}

} // namespace Panorel::X11
