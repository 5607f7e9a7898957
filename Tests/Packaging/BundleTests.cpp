#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QVariant>

using Dictionary = QVariantMap;

namespace {

QVariant valueOf(const QDomElement &element)
{
    const QString kind = element.tagName();
    if (kind == u"string")
        return element.text();
    if (kind == u"true" || kind == u"false")
        return kind == u"true";
    if (kind != u"array")
        qFatal("line %d: %s is no value", element.lineNumber(), qPrintable(kind));
    QStringList texts;
    for (auto text = element.firstChildElement(); !text.isNull(); text = text.nextSiblingElement())
        texts << valueOf(text).toString();
    return texts;
}

/// A property list's values: text, truth, a list of texts. What else there is, or is malformed,
/// ends the test program.
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
        if (key.tagName() != u"key" || values.contains(key.text()))
            qFatal("%s:%d: a new key expected", qPrintable(path), key.lineNumber());
        const QString name = key.text();
        key = key.nextSiblingElement();
        values[name] = valueOf(key);
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
    void theBundleSaysWhatItIs_data()
    {
        QTest::addColumn<QVariant>("expected");
        const auto row = [](const char *key, const QVariant &expected) {
            QTest::newRow(key) << expected;
        };
        row("CFBundleIdentifier", QStringLiteral("org.panorel.Panorel"));
        row("CFBundlePackageType", QStringLiteral("APPL"));
        row("CFBundleShortVersionString", QStringLiteral(PANOREL_VERSION));
        row("CFBundleVersion", QStringLiteral(PANOREL_VERSION));
        row("LSMinimumSystemVersion", QStringLiteral("13.0"));
        row("LSUIElement", true); // no Dock icon flashes up before the preference is read
        row("NSHighResolutionCapable", true);
    }

    void theBundleSaysWhatItIs()
    {
        QFETCH(QVariant, expected);
        for (const char *name : {"plain.plist", "updating.plist"}) {
            const QVariant value = infoPlist(name).value(QLatin1String(QTest::currentDataTag()));
            QCOMPARE(value.metaType(), expected.metaType());
            QCOMPARE(value, expected);
        }
    }

    void theUserReadsWhyCalendarsAreAskedFor()
    {
        // Without the text that its version of macOS wants, a request ends the program.
        const Dictionary info = infoPlist("plain.plist");
        for (const char *key :
             {"NSCalendarsFullAccessUsageDescription", "NSCalendarsUsageDescription"})
            QVERIFY2(info.value(QLatin1String(key)).toString().size() > 20, key);
    }

    void theBundleSpeaksTheLanguagesOfTheTranslations()
    {
        QStringList languages{QStringLiteral("en")};
        const QDir translations(source("Sources/Panorel/Translations"));
        for (const QString &file : translations.entryList({QStringLiteral("panorel_*.ts")}))
            languages << file.section(u'_', 1).section(u'.', 0, 0);
        QCOMPARE(infoPlist("plain.plist").value(QStringLiteral("CFBundleLocalizations")),
                 QVariant(languages));
    }

    void updatesAreThereOnlyWithAFeed()
    {
        const QString feed = QStringLiteral("SUFeedURL");
        const QString key = QStringLiteral("SUPublicEDKey");
        const Dictionary updating = infoPlist("updating.plist");
        QCOMPARE(updating.value(feed).toString(),
                 QStringLiteral("https://example.org/feed?a=1&b=<2>"));
        QCOMPARE(updating.value(key).toString(), QStringLiteral("bm90IGEga2V5LCBhIHRlc3Q="));
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
                 (Dictionary{
                     {QStringLiteral("com.apple.security.personal-information.calendars"), true}}));
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
