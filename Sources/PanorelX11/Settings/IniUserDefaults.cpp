#include "PanorelX11/Settings/IniUserDefaults.h"

#include "PanorelCore/Clock.h"
#include "PanorelCore/Files/AppLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
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

/// The text with quotes and escapes undone, however a character was written.
QByteArray plainText(const QByteArray &ini)
{
    QByteArray plain;
    for (qsizetype i = 0; i < ini.size(); ++i) {
        if (ini[i] == '"')
            continue;
        if (ini[i] != '\\') {
            plain += ini[i];
            continue;
        }
        const bool isHex = ini.mid(i + 1, 1) == "x";
        const QByteArrayView digits = isHex ? "0123456789abcdefABCDEF" : "01234567";
        char16_t number = 0; // a longer one wraps around, as where it is read
        for (i += isHex ? 1 : 0; i + 1 < ini.size() && digits.contains(ini[i + 1]); ++i)
            number = char16_t(number * (isHex ? 16 : 8) + ini.mid(i + 1, 1).toUInt(nullptr, 16));
        if (number > 0 && number < 0x80)
            plain += char(number);
    }
    return plain;
}

/// Whether a value is in QDataStream's form, which allocates whatever a length in it says. The
/// program never writes one; a text that looks like one begins with two of the characters.
bool hasSerializedValue(const QByteArray &ini)
{
    static const QRegularExpression form(QStringLiteral("(?<!@)@(Variant|DateTime)\\("));
    return form.match(QString::fromLatin1(plainText(ini))).hasMatch();
}

QByteArray fileContent(const QString &path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly) ? file.readAll()
                                                                      : QByteArray();
}

/// QSettings would drop the lines that it does not understand with the next write.
void setCorruptAside(const QString &path, AppLog &log, const Clock &clock)
{
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(clock.now().time_since_epoch());
    QFile::rename(path, path + QStringLiteral(".corrupt-%1").arg(seconds.count()));
    log.log(
        QStringLiteral("settings: %1 was corrupt, moved aside").arg(QFileInfo(path).fileName()));
}

/// The path, at which there is nothing that QSettings must not see.
QString checked(const QString &path, AppLog &log, const Clock &clock)
{
    if (hasSerializedValue(fileContent(path)))
        setCorruptAside(path, log, clock);
    return path;
}

} // namespace

IniUserDefaults::IniUserDefaults(AppLog &log, const Clock &clock)
    : IniUserDefaults(defaultPath(), log, clock)
{}

IniUserDefaults::IniUserDefaults(const QString &path, AppLog &log, const Clock &clock)
    : m_log(log), m_settings(checked(path, log, clock), QSettings::IniFormat)
{
    m_settings.allKeys(); // a section is read when it is first asked for
    if (m_settings.status() != QSettings::FormatError)
        return;
    setCorruptAside(path, log, clock);
    m_settings.clear(); // what it did understand may be as wrong as the rest
}

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

std::optional<QString> IniUserDefaults::text(const QString &key) const
{
    const QVariant value = m_settings.value(key);
    if (value.typeId() != QMetaType::QString)
        return {};
    return value.toString();
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

void IniUserDefaults::setText(const QString &key, const QString &value)
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
    if (m_settings.status() == QSettings::AccessError && !std::exchange(m_loggedFailure, true))
        m_log.log(QStringLiteral("settings: failed to save %1").arg(m_settings.fileName()));
    QFile::setPermissions(m_settings.fileName(), QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

} // namespace Panorel::X11
