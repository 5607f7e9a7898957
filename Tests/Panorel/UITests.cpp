#include "Panorel/UI/DisplaySchematic.h"
#include "Panorel/UI/Theme.h"

#include <QApplication>
#include <QTest>

using namespace Panorel;

class UITests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textAndStatusAreReadableInEveryPalette_data();
    void textAndStatusAreReadableInEveryPalette();
    void contrastIsComputedAsTheGuidelinesSay();
    void theSchematicKeepsTheProportions_data();
    void theSchematicKeepsTheProportions();
    void frontWindowsAreDrawnOverBackOnes();
};

void UITests::textAndStatusAreReadableInEveryPalette_data()
{
    QTest::addColumn<QColor>("window");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("highlight");
    QTest::newRow("light") << QColor(0xfafafb) << QColor(0x1d1f23) << QColor(0x3584e4);
    QTest::newRow("grey") << QColor(0xefefef) << QColor(Qt::black) << QColor(0x308cc6);
    QTest::newRow("dark") << QColor(0x26282c) << QColor(0xf1f2f4) << QColor(0x3584e4);
    QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white) << QColor(0x1a5fb4);
    QTest::newRow("sepia, pale accent") << QColor(0xf4ecd8) << QColor(0x5b4636) << QColor(0xe9c46a);
    QTest::newRow("red accent") << QColor(0x303030) << QColor(0xdddddd) << QColor(0xe01b24);
    QTest::newRow("a theme with faint text")
        << QColor(0xffffff) << QColor(0xbbbbbb) << QColor(0xdddddd);
}

void UITests::textAndStatusAreReadableInEveryPalette()
{
    QFETCH(QColor, window);
    QFETCH(QColor, text);
    QFETCH(QColor, highlight);
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    const Theme theme = Theme::of(palette);
    const std::pair<const char *, double> found[] = {
        {"text", contrast(theme.text, theme.window)},
        {"secondary text", contrast(theme.secondaryText, theme.window)},
        {"secondary text on a card", contrast(theme.secondaryText, theme.card)},
        {"good", contrast(theme.good, theme.window)},
        {"attention", contrast(theme.attention, theme.window)},
        {"off", contrast(theme.off, theme.window)},
        {"accent as ink", contrast(theme.accentInk, theme.window)},
        {"accent as ink on a card", contrast(theme.accentInk, theme.card)},
        {"text on the accent", contrast(theme.accentText, theme.accent)},
    };
    for (const auto &[what, value] : found)
        QVERIFY2(value >= readableContrast,
                 qPrintable(QStringLiteral("%1: %2").arg(QString::fromLatin1(what)).arg(value)));
    QVERIFY(theme.good != theme.attention && theme.attention != theme.off);
}

void UITests::contrastIsComputedAsTheGuidelinesSay()
{
    QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(contrast(Qt::white, Qt::white), 1.0);
    QVERIFY(std::abs(contrast(QColor(0x767676), Qt::white) - 4.54) < 0.01);
}

void UITests::theSchematicKeepsTheProportions_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("64 pixels wide") << QSize(64, 40);
    QTest::newRow("a whole window") << QSize(1200, 300);
    QTest::newRow("higher than wide") << QSize(100, 900);
}

void UITests::theSchematicKeepsTheProportions()
{
    QFETCH(QSize, size);
    DisplaySchematic schematic;
    schematic.resize(size);
    QVERIFY(schematic.transform().isIdentity());
    DisplayInfo left;
    left.frame = {-1080, -400, 1080, 1920};
    DisplayInfo right;
    right.frame = {0, 0, 2560, 1440};
    schematic.setDisplays({left, right});
    const QRectF all = schematic.transform().mapRect(QRectF(-1080, -400, 3640, 1920));
    QVERIFY(QRectF(schematic.rect()).contains(all));
    QVERIFY(std::abs(all.width() / all.height() - 3640.0 / 1920) < 1e-6);
    QVERIFY(std::abs(all.center().x() - size.width() / 2.0) < 1e-6);
    QVERIFY(all.width() > size.width() - 3 || all.height() > size.height() - 3);
}

void UITests::frontWindowsAreDrawnOverBackOnes()
{
    DisplaySchematic schematic;
    schematic.resize(400, 300);
    DisplayInfo display;
    display.frame = {0, 0, 4000, 3000};
    schematic.setDisplays({display});
    const auto solid = [](const QString &application) {
        QPixmap pixmap(48, 48);
        pixmap.fill(application == u"front" ? Qt::red : Qt::green);
        return QIcon(pixmap);
    };
    schematic.setIconOf(solid);
    WindowRecord front;
    front.bundleID = QStringLiteral("front");
    front.frame = {1000, 1000, 2000, 1000};
    WindowRecord back = front;
    back.bundleID = QStringLiteral("back");
    back.zOrder = 1;
    schematic.setWindows({front, back});
    QCOMPARE(schematic.grab().toImage().pixelColor(200, 150), QColor(Qt::red));

    schematic.resize(64, 48); // no room for icons
    schematic.setIconOf([](const QString &) -> QIcon { qFatal("asked for an icon"); });
    schematic.setWindows({front});
    front.frame = {1000, 1000, 600, 400};
    schematic.setWindows({front});
    schematic.grab();
}

QTEST_MAIN(UITests)
#include "UITests.moc"
