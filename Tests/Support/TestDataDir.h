#pragma once

#include "PanorelCore/Files/AppLog.h"
#include "Support/TestHome.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <chrono>

namespace Panorel {

/// A clock that stands still until it is told otherwise.
class FakeClock final : public Clock {
public:
    Instant now() const override { return m_now; }
    std::chrono::milliseconds steadyNow() const override { return m_now.time_since_epoch(); }

    void set(Instant now) { m_now = now; }
    void advance(std::chrono::milliseconds by) { m_now += by; }

private:
    Instant m_now{std::chrono::seconds(1715592000)}; // 2024-05-13T09:20:00Z
};

/// A data directory of the test's own, in force while this lives, with a clock and a log.
class TestDataDir {
public:
    TestDataDir() { qputenv("PANOREL_DATA_DIR", m_dir.path().toUtf8()); }
    ~TestDataDir()
    {
        log.flush(); // while the variable still leads here
        qunsetenv("PANOREL_DATA_DIR");
    }

    QString path(const QString &name) const { return QDir(m_dir.path()).filePath(name); }
    QByteArray read(const QString &name) const { return readFile(path(name)); }
    void write(const QString &name, const QByteArray &bytes) const { writeFile(path(name), bytes); }
    QStringList names() const
    {
        return QDir(m_dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    /// The log's messages so far, without their time stamps.
    QStringList logged()
    {
        log.flush();
        QStringList messages;
        for (const QByteArray &line : read(QStringLiteral("app.log")).split('\n')) {
            if (!line.isEmpty())
                messages.append(QString::fromUtf8(line.mid(line.indexOf(' ') + 1)));
        }
        return messages;
    }

    /// This test program again, in this directory, with another data directory if one is named.
    std::unique_ptr<QProcess> again(const QStringList &arguments,
                                    const std::optional<QString> &dataDir = {}) const
    {
        auto process = std::make_unique<QProcess>();
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("PANOREL_DATA_DIR"), dataDir.value_or(m_dir.path()));
        process->setProcessEnvironment(environment);
        process->setWorkingDirectory(m_dir.path());
        process->start(QCoreApplication::applicationFilePath(), arguments);
        return process;
    }

    FakeClock clock;
    AppLog log{clock};

private:
    QTemporaryDir m_dir;
};

} // namespace Panorel
