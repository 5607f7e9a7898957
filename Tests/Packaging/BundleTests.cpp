#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

/// The values by their keys, each as its kind and its text: "string 13.0", "true ".
using Dictionary = QMap<QString, QString>;

namespace {

/// What is malformed, or has a key twice, ends the test program.
Dictionary propertyList(const QString &path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        qFatal("%s is not to be read", qPrintable(path));
    Dictionary values;
    const auto root = document.firstChildElement(QStringLiteral("plist"));
    auto key = root.firstChildElement(QStringLiteral("dict")).firstChildElement();
    for (; !key.isNull(); key = key.nextSiblingElement()) {
        const QString name = key.text();
        if (key.tagName() != u"key" || values.contains(name))
            qFatal("%s:%d: a new key expected", qPrintable(path), key.lineNumber());
        key = key.nextSiblingElement();
        values[name] = key.tagName() + u' ' + key.text();
    }
    return values;
}

QString plistPath(const char *name)
{
    return QStringLiteral(PANOREL_PLISTS "/") + QLatin1String(name);
}

Dictionary infoPlist(const char *name)
{
    return propertyList(plistPath(name));
}

QString source(const char *path)
{
    return QStringLiteral(PANOREL_SOURCES "/") + QLatin1String(path);
}

} // namespace

/// What makes the program a macOS bundle, as far as that can be seen without a Mac.
class BundleTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBundleSaysWhatItIs()
    {
        const std::pair<const char *, const char *> rows[] = {
            {"CFBundleIdentifier", "string org.panorel.Panorel"},
            {"CFBundlePackageType", "string APPL"},
            {"CFBundleShortVersionString", "string " PANOREL_VERSION},
            {"CFBundleVersion", "string " PANOREL_VERSION},
            {"LSMinimumSystemVersion", "string 13.0"},
            {"LSUIElement", "true "}, // no Dock icon flashes up before the preference is read
            {"NSHighResolutionCapable", "true "}};
        for (const char *name : {"plain.plist", "updating.plist"}) {
            const Dictionary info = infoPlist(name);
            for (const auto &[key, expected] : rows)
                QCOMPARE(info.value(QLatin1String(key)), QLatin1String(expected));
            // Without the text that its version of macOS wants, a request ends the program.
            for (const char *key :
                 {"NSCalendarsFullAccessUsageDescription", "NSCalendarsUsageDescription"})
                QVERIFY2(info.value(QLatin1String(key)).size() > 25, key);
        }
    }

    void theBundleSpeaksTheLanguagesOfTheTranslations()
    {
        QString languages = QStringLiteral("array en");
        const QDir translations(source("Sources/Panorel/Translations"));
        for (const QString &file : translations.entryList({QStringLiteral("panorel_*.ts")}))
            languages += file.section(u'_', 1).section(u'.', 0, 0);
        QCOMPARE(infoPlist("plain.plist").value(QStringLiteral("CFBundleLocalizations")),
                 languages);
    }

    void updatesAreThereOnlyWithAFeed()
    {
        const QString feed = QStringLiteral("SUFeedURL");
        const QString key = QStringLiteral("SUPublicEDKey");
        const Dictionary updating = infoPlist("updating.plist");
        QCOMPARE(updating.value(feed), QStringLiteral("string https://example.org/feed?a=1&b=<2>"));
        QCOMPARE(updating.value(key), QStringLiteral("string bm90IGEga2V5LCBhIHRlc3Q="));
        const Dictionary plain = infoPlist("plain.plist");
        QVERIFY(!plain.contains(feed) && !plain.contains(key));
    }

    void noPlaceholderIsLeft()
    {
        for (const char *name : {"plain.plist", "updating.plist"}) {
            QFile file(plistPath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            const QByteArray text = file.readAll();
            QVERIFY2(!text.contains('@') && !text.contains('$') && !text.contains("<string></"),
                     text.constData());
        }
    }

    /// A sandbox would keep the program from moving other programs' windows.
    void calendarsAreTheOnlyEntitlement()
    {
        const Dictionary entitlements =
            propertyList(source("Packaging/macos/Panorel.entitlements"));
        QCOMPARE(entitlements,
                 (Dictionary{{QStringLiteral("com.apple.security.personal-information.calendars"),
                              QStringLiteral("true ")}}));
    }

    void theIconIsDrawnInEverySize()
    {
        const QTemporaryDir folder;
        const QString drawing = source("Packaging/icons/org.panorel.Panorel.svg");
        const QString tool = QStringLiteral(PANOREL_RENDER_ICONS);
        const auto draw = [&](const char *form, const QString &file) {
            return QProcess::execute(tool, {QLatin1String(form), file, folder.path()});
        };
        QCOMPARE(draw("iconset", drawing), 0);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 10);
        for (const int points : {16, 32, 128, 256, 512}) {
            for (const int scale : {1, 2}) {
                const QString name = QStringLiteral("icon_%1x%1%2.png")
                                         .arg(points)
                                         .arg(scale == 2 ? QStringLiteral("@2x") : QString());
                const QImage image(folder.filePath(name));
                QCOMPARE(image.size(), QSize(points, points) * scale);
                QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
                const QPoint onWindow(image.width() * 3 / 16, image.height() * 9 / 32);
                QVERIFY2(image.pixelColor(onWindow).alpha() == 255, qPrintable(name));
            }
        }
        QCOMPARE(draw("hicolor", drawing), 0);
        for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
            const QString name = QStringLiteral("%1x%1/apps/org.panorel.Panorel.png").arg(pixels);
            const QImage image(folder.filePath(name));
            QCOMPARE(image.size(), QSize(pixels, pixels));
            // A theme's icon fills its place: the drawing's own edges are a thirty-second.
            QVERIFY2(image.pixelColor(pixels / 12, pixels / 3).alpha() == 255, qPrintable(name));
        }
        QVERIFY(draw("iconset", folder.filePath(QStringLiteral("absent.svg"))) != 0);
        QVERIFY(draw("other", drawing) != 0);
    }
};

QTEST_GUILESS_MAIN(BundleTests)
#include "BundleTests.moc"
