#include "Support/TestDataDir.h"

#include "Support/TestHome.h"

#include <QCoreApplication>

namespace Panorel {

TestDataDir::TestDataDir()
{
    qputenv("PANOREL_DATA_DIR", m_dir.path().toUtf8());
}

TestDataDir::~TestDataDir()
{
    log.flush(); // while the variable still leads here
    qunsetenv("PANOREL_DATA_DIR");
}

QByteArray TestDataDir::read(const QString &name) const
{
    return readFile(path(name));
}

void TestDataDir::write(const QString &name, const QByteArray &bytes) const
{
    writeFile(path(name), bytes);
}

QStringList TestDataDir::names() const
{
    return QDir(m_dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QStringList TestDataDir::logged()
{
    log.flush();
    QStringList messages;
    for (const QByteArray &line : read(QStringLiteral("app.log")).split('\n')) {
        if (!line.isEmpty())
            messages.append(QString::fromUtf8(line.mid(line.indexOf(' ') + 1)));
    }
    return messages;
}

std::unique_ptr<QProcess> TestDataDir::again(const QStringList &arguments,
                                             const std::optional<QString> &dataDir) const
{
    auto process = std::make_unique<QProcess>();
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PANOREL_DATA_DIR"), dataDir.value_or(m_dir.path()));
    process->setProcessEnvironment(environment);
    process->setWorkingDirectory(m_dir.path());
    process->start(QCoreApplication::applicationFilePath(), arguments);
    return process;
}

} // namespace Panorel
