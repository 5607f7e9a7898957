#include "Panorel/UI/Theme.h"

#include <QTest>

using namespace Panorel;

class ThemeTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textAndStatusAreReadableInEveryPalette()
    {
        const struct {
            const char *name;
            QRgb window, text, highlight;
        } palettes[] = {
            {"light", 0xfafafb, 0x1d1f23, 0x3584e4},
            {"dark", 0x26282c, 0xf1f2f4, 0x3584e4},
            {"black", 0x000000, 0xffffff, 0x1a5fb4},
            {"sepia, pale accent", 0xf4ecd8, 0x5b4636, 0xe9c46a},
            {"a theme with faint text", 0xffffff, 0xbbbbbb, 0xdddddd},
        };
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        for (const auto &[name, window, text, highlight] : palettes) {
            QPalette palette;
            palette.setColor(QPalette::Window, window);
            palette.setColor(QPalette::WindowText, text);
            palette.setColor(QPalette::Highlight, highlight);
            palette.setColor(QPalette::HighlightedText, Qt::white);
            const Theme theme = Theme::of(palette);
            QVERIFY2(contrast(theme.accentText, theme.accent) >= readableContrast, name);
            for (const QColor &ink : {theme.text, theme.secondaryText, theme.good, theme.attention,
                                      theme.off, theme.accentInk})
                QVERIFY2(contrast(ink, theme.window) >= readableContrast, name);
            for (const QColor &ink : {theme.secondaryText, theme.accentInk})
                QVERIFY2(contrast(ink, theme.card) >= readableContrast, name);
        }
    }
};

QTEST_MAIN(ThemeTests)
#include "ThemeTests.moc"
