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
            {"LSMinimumSystemVersion", "string 13.0"},
            {"LSUIElement", "true "}}; // no Dock icon flashes up before the preference is read
        const Dictionary info = propertyList(QStringLiteral(PANOREL_PLISTS "/plain.plist"));
        for (const auto &[key, expected] : rows)
            QCOMPARE(info.value(QLatin1String(key)), QLatin1String(expected));
        // Without the text that its version of macOS wants, a request ends the program.
        for (const char *key :
             {"NSCalendarsFullAccessUsageDescription", "NSCalendarsUsageDescription"})
            QVERIFY2(info.value(QLatin1String(key)).size() > 25, key);
    }

    void updatesAreThereOnlyWithAFeed()
    {
        const QString feed = QStringLiteral("SUFeedURL");
        const QString key = QStringLiteral("SUPublicEDKey");
        const Dictionary updating = propertyList(QStringLiteral(PANOREL_PLISTS "/updating.plist"));
        QCOMPARE(updating.value(feed), QStringLiteral("string https://example.org/feed?a=1&b=<2>"));
        QCOMPARE(updating.value(key), QStringLiteral("string bm90IGEga2V5LCBhIHRlc3Q="));
        const Dictionary plain = propertyList(QStringLiteral(PANOREL_PLISTS "/plain.plist"));
        QVERIFY(!plain.contains(feed) && !plain.contains(key));
    }

    /// A sandbox would keep the program from moving other programs' windows.
    void calendarsAreTheOnlyEntitlement()
    {
        QCOMPARE(propertyList(source("Packaging/macos/Panorel.entitlements")),
                 (Dictionary{{QStringLiteral("com.apple.security.personal-information.calendars"),
                              QStringLiteral("true ")}}));
    }

    void theIconIsDrawnInEverySize()
    {
        const QTemporaryDir folder;
        const QString drawing = source("Packaging/icons/org.panorel.Panorel.svg");
        for (const char *form : {"iconset", "hicolor"})
            QCOMPARE(QProcess::execute(QStringLiteral(PANOREL_RENDER_ICONS),
                                       {QLatin1String(form), drawing, folder.path()}),
                     0);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 10);
        const std::pair<const char *, int> icons[] = {
            {"icon_16x16.png", 16},
            {"icon_512x512@2x.png", 1024},
            {"22x22/apps/org.panorel.Panorel.png", 22},
            {"512x512/apps/org.panorel.Panorel.png", 512}};
        for (const auto &[name, pixels] : icons) {
            const QImage image(folder.filePath(QLatin1String(name)));
            QCOMPARE(image.size(), QSize(pixels, pixels));
            QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
            QVERIFY2(image.pixelColor(pixels * 3 / 16, pixels / 3).alpha() == 255, name);
        }
    }
};

QTEST_GUILESS_MAIN(BundleTests)
#include "BundleTests.moc"
