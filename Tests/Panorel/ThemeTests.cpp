#include "Panorel/Records.h"
#include "Panorel/UI/DisplaySchematic.h"
#include "Panorel/UI/Page.h"
#include "Panorel/UI/RowCard.h"
#include "Panorel/UI/SectionHeading.h"
#include "Panorel/UI/SymbolView.h"
#include "Panorel/UI/TextLabel.h"
#include "Panorel/UI/Theme.h"

#include <QApplication>
#include <QTest>
#include <QVBoxLayout>

using namespace Panorel;

class UITests : public QObject {
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
            {"red accent", 0x303030, 0xdddddd, 0xe01b24},
            {"a theme with faint text", 0xffffff, 0xbbbbbb, 0xdddddd},
        };
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
            QVERIFY2(theme.good != theme.attention && theme.attention != theme.off, name);
        }
    }

    void aHighPageStretchesNoCard()
    {
        Page page(QStringLiteral("Page"));
        auto *card = new Card;
        card->body()->addWidget(new SymbolView(Symbol::Display));
        card->body()->addStretch();
        auto *filling = new QWidget;
        page.addWidget(card);
        page.addFilling(filling);
        page.resize(1000, 900);
        page.show();
        QTRY_COMPARE(card->height(), card->sizeHint().height());
        QVERIFY(filling->height() > 700);
        filling->hide();
        QCoreApplication::processEvents();
        QCOMPARE(card->height(), card->sizeHint().height());
        // And a wide one has it in the middle.
        QCOMPARE(card->width(), 640);
        QVERIFY(std::abs(card->mapTo(&page, card->rect().center()).x() - 500) <= 1);
    }

    void aNoteKeepsItsRoomBesideALongName()
    {
        SectionHeading heading(QString(500, u'x'), QStringLiteral("Current desk"));
        heading.resize(300, 40);
        heading.show();
        const auto labels = heading.findChildren<TextLabel *>();
        QVERIFY(labels.at(0)->width() > 100);
        QVERIFY(labels.at(1)->width() >= labels.at(1)->sizeHint().width());
    }

    void contrastIsComputedAsTheGuidelinesSay()
    {
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        QVERIFY(std::abs(contrast(QColor(0x767676), Qt::white) - 4.54) < 0.01);
    }

    void theSchematicKeepsTheProportions()
    {
        DisplaySchematic schematic;
        QVERIFY(schematic.transform().isIdentity());
        schematic.setDisplays(
            {display("left", {-1080, -400, 1080, 1920}), display("right", {0, 0, 2560, 1440})});
        for (const QSize &size : {QSize(64, 40), QSize(1200, 300), QSize(100, 900)}) {
            schematic.resize(size);
            const QRectF all = schematic.transform().mapRect(QRectF(-1080, -400, 3640, 1920));
            QVERIFY(QRectF(schematic.rect()).contains(all));
            QVERIFY(std::abs(all.width() / all.height() - 3640.0 / 1920) < 1e-6);
            QVERIFY(std::abs(all.center().x() - size.width() / 2.0) < 1e-6);
            QVERIFY(all.width() > size.width() - 3 || all.height() > size.height() - 3);
        }
    }

    void frontWindowsAreDrawnOverBackOnes()
    {
        DisplaySchematic schematic;
        schematic.resize(400, 300);
        schematic.setDisplays({display("only", {0, 0, 4000, 3000})});
        schematic.setIconOf([](const QString &application) {
            QPixmap pixmap(48, 48);
            pixmap.fill(application == u"front" ? Qt::red : Qt::green);
            return QIcon(pixmap);
        });
        const WindowRecord front = window("front", "", {1000, 1000, 2000, 1000});
        WindowRecord back = window("back", "", front.frame);
        back.zOrder = 1;
        schematic.setWindows({front, back});
        QCOMPARE(schematic.grab().toImage().pixelColor(200, 150), QColor(Qt::red));

        schematic.resize(64, 48); // no room for icons
        schematic.setIconOf([](const QString &) -> QIcon { qFatal("asked for an icon"); });
        schematic.grab();
    }
};

QTEST_MAIN(UITests)
#include "UITests.moc"
