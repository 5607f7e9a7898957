#pragma once

#include <QDir>
#include <QTemporaryDir>

namespace Panorel {

/// Writes a file, and the folders that lead to it; fatal where that fails.
void writeFile(const QString &path, const QByteArray &bytes);
/// Empty where it can't be read.
QByteArray readFile(const QString &path);

/// A home of the test's own, to which HOME and the XDG variables of the process lead.
class TestHome {
public:
    TestHome();

    QString path(const QString &name = {}) const { return QDir(m_dir.path()).filePath(name); }
    QString application(const QString &id) const;

    /// As the user's own installation of an application: the keys beside its type and its name.
    void install(const QString &id, const QByteArray &keys) const;

private:
    QTemporaryDir m_dir;
};

} // namespace Panorel
