#include "PanorelX11/Session/GObjectOwned.h"
#include "PanorelX11/Settings/IniUserDefaults.h"
#include "PanorelX11/Settings/XdgLoginItem.h"
#include "Support/TestDataDir.h"
#include "Support/TestHome.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gio/gdesktopappinfo.h>

#include <numeric>

namespace Panorel::X11 {

namespace {} // namespace

class SettingsTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_home = std::make_unique<QTemporaryDir>();
        qputenv("XDG_CONFIG_HOME", m_home->path().toUtf8());
        qputenv("XDG_CONFIG_DIRS", m_home->filePath(QStringLiteral("none")).toUtf8());
    }

    void valuesSurviveTheProcess()
    {
        IniUserDefaults defaults(m_data.log, m_data.clock);
        defaults.setBoolean(QStringLiteral("on"), true);
        defaults.setNumber(QStringLiteral("third"), 1.0 / 3);
        QByteArray everyByte(256, '\0');
        std::iota(everyByte.begin(), everyByte.end(), '\0');
        defaults.setData(QStringLiteral("bytes"), everyByte);
        defaults.setBoolean(QStringLiteral("removed"), true);
        defaults.remove(QStringLiteral("removed"));

        const auto again = stored();
        QCOMPARE(again->boolean(QStringLiteral("on")), true);
        QCOMPARE(again->number(QStringLiteral("third")), 1.0 / 3);
        QCOMPARE(again->data(QStringLiteral("bytes")), everyByte);
        QVERIFY(!again->contains(QStringLiteral("removed")));
    }

    void aFileOfGarbageIsKeptAside()
    {
        const QByteArray garbage("\x89PNG\r\n\x1a\n\0\0 no setting at all\nenabled=false\n", 43);
        writeFile(path(), garbage);
        IniUserDefaults defaults(m_data.log, m_data.clock);
        QVERIFY(!defaults.contains(QStringLiteral("enabled")));
        defaults.setBoolean(QStringLiteral("enabled"), true);
        QCOMPARE(stored()->boolean(QStringLiteral("enabled")), true);
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
        defaults.setBoolean(QStringLiteral("enabled"), true);
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

private:
    QString path() const { return m_home->filePath(QStringLiteral("Panorel/Panorel.ini")); }
    /// Read from a copy, of which this process has cached nothing.
    std::unique_ptr<IniUserDefaults> stored()
    {
        const QString copy = m_home->filePath(QStringLiteral("copy.ini"));
        QFile::copy(path(), copy);
        return std::make_unique<IniUserDefaults>(copy, m_data.log, m_data.clock);
    }

    TestDataDir m_data;
    std::unique_ptr<QTemporaryDir> m_home;
};

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::SettingsTests)
#include "SettingsTests.moc"
