#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace Panorel {

/// Writes a file, and the folders that lead to it; fatal where that fails.
inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// Empty where it can't be read.
inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A home of the test's own, to which HOME and the XDG variables of the process lead.
class TestHome {
public:
    TestHome()
    {
        qputenv("HOME", m_dir.path().toUtf8());
        for (const auto &[variable, folder] : {std::pair("XDG_RUNTIME_DIR", "run"),
                                               {"XDG_CONFIG_HOME", "config"},
                                               {"XDG_DATA_HOME", "data"},
                                               {"XDG_CACHE_HOME", "cache"}}) {
            const QString made = path(QLatin1String(folder));
            QDir().mkpath(made);
            QFile::setPermissions(made, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            qputenv(variable, made.toUtf8());
        }
    }

    QString path(const QString &name = {}) const { return QDir(m_dir.path()).filePath(name); }
    QString application(const QString &id) const
    {
        return path(QStringLiteral("data/applications/%1.desktop").arg(id));
    }

    /// As the user's own installation of an application: the keys beside its type and its name.
    void install(const QString &id, const QByteArray &keys) const
    {
        writeFile(application(id),
                  "[Desktop Entry]\nType=Application\nName=" + id.toUtf8() + '\n' + keys);
    }

private:
    QTemporaryDir m_dir;
};

} // namespace Panorel
