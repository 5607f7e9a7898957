#include "Support/TestHome.h"

#include <QFile>

namespace Panorel {

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TestHome::TestHome()
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

QString TestHome::application(const QString &id) const
{
    return path(QStringLiteral("data/applications/%1.desktop").arg(id));
}

void TestHome::install(const QString &id, const QByteArray &keys) const
{
    writeFile(application(id),
              "[Desktop Entry]\nType=Application\nName=" + id.toUtf8() + '\n' + keys);
}

} // namespace Panorel
