#pragma once

#include "Desktop/Support/ChildProcess.h"
#include "Desktop/Support/TestKeyboard.h"

#include <QDir>
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

    qint64 processID() const { return m_child.processID(); }
    qsizetype logged(const char *text) const;
    void awaitLogged(qsizetype count, const char *text) const;

    /// Until it was heard: before the program has the key it goes to a window.
    void pressUntilLogged(TestKeyboard &keyboard, const HotKeyCombo &combo, const char *text) const;

    QByteArray read(const QString &file) const;
    QJsonObject layouts() const;
    QStringList files() const { return QDir(m_data.path()).entryList(QDir::Files | QDir::Hidden); }

    /// Signals it, and fails the test unless it ends well and in silence.
    void endCleanly(int signal);

    /// It ends by itself with a failure, and says why in one line.
    QByteArray failsWithOneLine();

private:
    void awaitEnd();

    QTemporaryDir m_data;
    ChildProcess m_child;
};

} // namespace Panorel::Desktop
