#pragma once

#include "PanorelCore/Files/AppLog.h"

#include <QDir>
#include <QProcess>
#include <QStringList>
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
    TestDataDir();
    ~TestDataDir();

    QString path(const QString &name) const { return QDir(m_dir.path()).filePath(name); }
    QByteArray read(const QString &name) const;
    void write(const QString &name, const QByteArray &bytes) const;
    QStringList names() const;

    /// The log's messages so far, without their time stamps.
    QStringList logged();

    /// This test program again, in this directory, with another data directory if one is named.
    std::unique_ptr<QProcess> again(const QStringList &arguments,
                                    const std::optional<QString> &dataDir = {}) const;

    FakeClock clock;
    AppLog log{clock};

private:
    QTemporaryDir m_dir;
};

} // namespace Panorel
