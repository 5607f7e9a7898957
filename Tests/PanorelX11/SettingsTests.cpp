#include "PanorelX11/Session/GObjectOwned.h"
#include "PanorelX11/Settings/IniUserDefaults.h"
#include "PanorelX11/Settings/XdgLoginItem.h"
#include "Support/TestDataDir.h"
#include "Support/TestHome.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gio/gdesktopappinfo.h>

#include <cmath>
#include <numeric>

namespace Panorel::X11 {

namespace {

QByteArray everyByte()
{
    QByteArray bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

/// One "kind:value" a key.
QByteArray readBack(const IniUserDefaults &defaults, const QString &key)
{
    if (const auto value = defaults.boolean(key))
        return *value ? "boolean:true" : "boolean:false";
    if (const auto value = defaults.number(key))
        return "number:" + QByteArray::number(*value, 'g', 17);
    if (const auto value = defaults.data(key))
        return "data:" + value->toHex();
    return defaults.contains(key) ? "other" : "absent";
}

} // namespace

class SettingsTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", m_home->path().toUtf8());
        qputenv("XDG_CONFIG_DIRS", m_home->filePath(QStringLiteral("everybody")).toUtf8());
    }

    void valuesSurviveTheProcess()
    {
        IniUserDefaults defaults(m_data.log, m_data.clock);
        defaults.setBoolean(QStringLiteral("on"), true);
        defaults.setBoolean(QStringLiteral("off"), false);
        defaults.setNumber(QStringLiteral("third"), 1.0 / 3);
        defaults.setNumber(QStringLiteral("whole"), 3);
        defaults.setData(QStringLiteral("bytes"), everyByte());
        defaults.setData(QStringLiteral("nothing"), QByteArray(""));
        defaults.setBoolean(QStringLiteral("removed"), true);
        defaults.remove(QStringLiteral("removed"));

        const std::pair<const char *, QByteArray> expected[] = {
            {"on", "boolean:true"},
            {"off", "boolean:false"},
            {"third", "number:0.33333333333333331"},
            {"whole", "number:3"},
            {"bytes", "data:" + everyByte().toHex()},
            {"nothing", "data:"},
            {"removed", "absent"},
        };
        for (const auto &[name, value] : expected)
            QCOMPARE(stored(QString::fromLatin1(name)), value);
    }

    void aValueOfAnotherTypeIsAbsent()
    {
        writeFile(path(), "[General]\nyes=yes\nnan=nan\nlarge=1e999\nlist=1, 2\none=1\n"
                          "hand=false\n");
        const IniUserDefaults defaults(m_data.log, m_data.clock);
        for (const char *other : {"yes", "nan", "large", "list"})
            QCOMPARE(readBack(defaults, QLatin1String(other)), "other");
        QCOMPARE(readBack(defaults, QStringLiteral("one")), "number:1"); // and no boolean
        QCOMPARE(readBack(defaults, QStringLiteral("hand")), "boolean:false");
    }

    void aFileOfGarbageIsKeptAside()
    {
        const QByteArray garbage("\x89PNG\r\n\x1a\n\0\0 no setting at all\nenabled=false\n", 43);
        writeFile(path(), garbage);
        IniUserDefaults defaults(m_data.log, m_data.clock);
        QVERIFY(!defaults.contains(QStringLiteral("enabled")));
        defaults.setBoolean(QStringLiteral("enabled"), true);
        QCOMPARE(stored(QStringLiteral("enabled")), "boolean:true");
        QCOMPARE(readFile(path() + QStringLiteral(".corrupt-1715592000")), garbage);
        QVERIFY(m_data.logged().contains(
            QStringLiteral("settings: Panorel.ini was corrupt, moved aside")));
    }

    void aFileThatCantBeWrittenIsLoggedOnce()
    {
        QVERIFY(QDir().mkpath(path())); // a folder in the file's place
        IniUserDefaults defaults(m_data.log, m_data.clock);
        defaults.setBoolean(QStringLiteral("enabled"), false);
        defaults.setBoolean(QStringLiteral("enabled"), true);
        QCOMPARE(defaults.boolean(QStringLiteral("enabled")), true); // this run has it
        QCOMPARE(m_data.logged().filter(QStringLiteral("settings: failed to save")).size(), 1);
    }

    void settingsAreForTheirUserOnly()
    {
        IniUserDefaults defaults(m_data.log, m_data.clock);
        defaults.setNumber(QStringLiteral("bad"), std::nan(""));
        QVERIFY(!defaults.number(QStringLiteral("bad")));
        const auto groupAndOthers = QFileDevice::Permissions(0x0077);
        QVERIFY(QFile::exists(path()));
        QVERIFY(!(QFile::permissions(path()) & groupAndOthers));
        // A file that came from elsewhere, readable for all, is closed with the next write.
        QFile::setPermissions(path(), QFile::permissions(path()) | QFileDevice::ReadOther);
        defaults.setBoolean(QStringLiteral("more"), true);
        QVERIFY(!(QFile::permissions(path()) & groupAndOthers));
    }

    void theLoginItemStartsTheProgramAndGoes()
    {
        const QString file =
            m_home->filePath(QStringLiteral("autostart/org.panorel.Panorel.desktop"));
        const QString folder = m_home->filePath(QStringLiteral("a \"$HOME\" `x` \\n 'é"));
        const QString program = folder + QStringLiteral("/panorel");
        QVERIFY(QDir().mkpath(folder));
        QVERIFY(QFile::copy(QStringLiteral("/bin/true"), program));

        XdgLoginItem item(program);
        item.setRegistered(false);
        item.setRegistered(true);
        item.setRegistered(true);
        // GIO undoes the escapes as a desktop session does, and refuses a program that is not
        // there.
        const GOwned<GDesktopAppInfo> entry(
            g_desktop_app_info_new_from_filename(file.toUtf8().constData()));
        QVERIFY(entry);
        char **arguments = nullptr;
        QVERIFY(g_shell_parse_argv(g_app_info_get_commandline(G_APP_INFO(entry.get())), nullptr,
                                   &arguments, nullptr));
        QCOMPARE(QString::fromUtf8(arguments[0]), program);
        QVERIFY(!arguments[1]);
        g_strfreev(arguments);

        XdgLoginItem(QStringLiteral("/opt/$x 50%f/panorel")).setRegistered(true);
        QVERIFY(readFile(file).contains("Exec=\"/opt/\\\\$x 50%%f/panorel\"\n"));
        item.setRegistered(false);
        QVERIFY(!QFile::exists(file));
    }

    /// A user who does not want what the administrator starts for everybody.
    void theLoginItemCanBeOffForOneUser()
    {
        const QString name = QStringLiteral("autostart/org.panorel.Panorel.desktop");
        const QString everybodys = m_home->filePath(QStringLiteral("everybody/") + name);
        QVERIFY(QDir().mkpath(QFileInfo(everybodys).path()));
        const QByteArray entry = "[Desktop Entry]\nType=Application\nName=P\nExec=/bin/true\n";
        writeFile(everybodys, entry);
        const auto isHidden = [file = m_home->filePath(name).toUtf8()] {
            const GOwned<GDesktopAppInfo> own(
                g_desktop_app_info_new_from_filename(file.constData()));
            return own && g_desktop_app_info_get_is_hidden(own.get());
        };
        XdgLoginItem item(QStringLiteral("/bin/true"));
        item.setRegistered(false);
        QVERIFY(isHidden());
        item.setRegistered(true);
        QVERIFY(QFile::exists(m_home->filePath(name)) && !isHidden());
        item.setRegistered(false);
        QVERIFY(isHidden());
        QCOMPARE(readFile(everybodys), entry);
    }

private:
    QString path() const { return m_home->filePath(QStringLiteral("Panorel/Panorel.ini")); }
    /// Read from a copy, of which this process has cached nothing.
    QByteArray stored(const QString &key)
    {
        const QTemporaryDir folder;
        const QString copy = folder.filePath(QStringLiteral("copy.ini"));
        QFile::copy(path(), copy);
        return readBack(IniUserDefaults(copy, m_data.log, m_data.clock), key);
    }

    TestDataDir m_data;
    std::unique_ptr<QTemporaryDir> m_home;
};

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::SettingsTests)
#include "SettingsTests.moc"
