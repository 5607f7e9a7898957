#include "PanorelX11/Settings/IniUserDefaults.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <cmath>

namespace Panorel::X11 {

namespace {

QString defaultPath()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("Panorel/Panorel.ini"));
}

/// The text of a value as it stands in the file; empty for one that has another form there. What
/// this process wrote itself comes back from the cache with its type.
QString scalarText(const QVariant &value)
{
    const int type = value.typeId();
    const bool isScalar =
        type == QMetaType::QString || type == QMetaType::Bool || type == QMetaType::Double;
    return isScalar ? value.toString() : QString();
}

} // namespace

IniUserDefaults::IniUserDefaults() : IniUserDefaults(defaultPath()) {}

IniUserDefaults::IniUserDefaults(const QString &path) : m_settings(path, QSettings::IniFormat) {}

bool IniUserDefaults::contains(const QString &key) const
{
    return m_settings.contains(key);
}

std::optional<bool> IniUserDefaults::boolean(const QString &key) const
{
    const QString text = scalarText(m_settings.value(key));
    if (text == QLatin1String("true"))
        return true;
    if (text == QLatin1String("false"))
        return false;
    return {};
}

std::optional<double> IniUserDefaults::number(const QString &key) const
{
    bool isNumber = false;
    const double number = scalarText(m_settings.value(key)).toDouble(&isNumber);
    return isNumber && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<QByteArray> IniUserDefaults::data(const QString &key) const
{
    const QVariant value = m_settings.value(key);
    if (value.typeId() != QMetaType::QByteArray)
        return {};
    return value.toByteArray();
}

void IniUserDefaults::setBoolean(const QString &key, bool value)
{
    m_settings.setValue(key, value);
    writeThrough();
}

void IniUserDefaults::setNumber(const QString &key, double value)
{
    m_settings.setValue(key, value);
    writeThrough();
}

void IniUserDefaults::setData(const QString &key, const QByteArray &value)
{
    m_settings.setValue(key, value);
    writeThrough();
}

void IniUserDefaults::remove(const QString &key)
{
    m_settings.remove(key);
    writeThrough();
}

void IniUserDefaults::writeThrough()
{
    m_settings.sync();
    QFile::setPermissions(m_settings.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace Panorel::X11
