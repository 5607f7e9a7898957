#pragma once

#include "Desktop/Support/ChildProcess.h"
#include "Desktop/Support/TestKeyboard.h"
#include "Support/TestHome.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

namespace Panorel::Desktop {

/// The program itself on the test desktop, with a data directory of its own.
class TestProgram {
public:
    /// Starts it at once. Given what another one has left behind, goes on with that.
    explicit TestProgram(const std::map<QString, QByteArray> &files = {});
    ~TestProgram();

    static QString path();

    pid_t processID() const { return static_cast<pid_t>(m_child.processID()); }

    /// One of the kernel's files about it: "io", "net/unix".
    QByteArray processFile(const QString &name) const;
    /// Until it rests: no processor time for a while.
    void awaitRest() const;

    /// How long programs that are started from now on wait for displays to settle.
    static void setSettleSeconds(double seconds);

    qsizetype logged(const char *text) const { return log().count(text); }
    void awaitLogged(qsizetype count, const char *text) const
    {
        require([&] { return logged(text) >= count; }, text);
    }

    /// After that much of the log, that many displays settled and the desk was restored. What the
    /// restore reported.
    QByteArray awaitRestore(qsizetype logSize, int displays) const;
    qsizetype logSize() const { return log().size(); }

    /// Until it was heard and logged once more: before the program has the key it goes to a window.
    void pressUntilLogged(TestKeyboard &keyboard, const HotKeyCombo &combo, const char *text) const;

    QByteArray read(const QString &file) const { return readFile(m_data.filePath(file)); }
    QJsonObject layouts() const
    {
        return QJsonDocument::fromJson(read(QStringLiteral("layouts.json"))).object();
    }
    QStringList files() const { return QDir(m_data.path()).entryList(QDir::Files | QDir::Hidden); }

    /// Signals it, and fails the test unless it ends well and in silence.
    void endCleanly(int signal);

    /// It ends by itself with a failure, and says why in one line.
    QByteArray failsWithOneLine();

private:
    QByteArray log() const { return read(QStringLiteral("app.log")); }
    void awaitEnd();

    QTemporaryDir m_data;
    ChildProcess m_child;
};

} // namespace Panorel::Desktop
