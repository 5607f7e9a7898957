#include "PanorelX11/Windows/WindowTitle.h"

#include <QObject>
#include <QTest>

using namespace Panorel::X11;

class WindowTitleTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTitleIsValidText_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("utf8");
        QTest::addColumn<QString>("compound");
        const auto row = [](const char *name, const QByteArray &bytes, const QString &utf8,
                            const QString &compound) {
            QTest::newRow(name) << bytes << utf8 << compound;
        };
        const QString umlaut(QChar(0xfc));
        const QString bad(QChar::ReplacementCharacter);
        row("plain", "inbox", QStringLiteral("inbox"), QStringLiteral("inbox"));
        row("Latin-1", "\xfc", bad, umlaut);
        row("kept as it is", " a  b\n", QStringLiteral(" a  b\n"), QStringLiteral(" a  b\n"));
        row("ends at a NUL", QByteArray("ab\0cd", 5), QStringLiteral("ab"), QStringLiteral("ab"));
        row("cut within a character", "a\xc3", QStringLiteral("a") + bad,
            QStringLiteral("a\u00c3"));
        row("UTF-8 in compound text", "a\x1b%G\xc3\xbc\x1b%@\xfc", QString(),
            QStringLiteral("a") + umlaut + umlaut);
        row("another character set", "a\x1b$(B0l\x1b(Bz", QString(),
            QStringLiteral("a") + bad + bad + QStringLiteral("z"));
        row("ends within an escape sequence", "a\x1b", QString(), QStringLiteral("a"));
    }

    void everyTitleIsValidText()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, utf8);
        if (!utf8.isNull())
            QCOMPARE(titleFromUtf8(bytes), utf8);
        QTEST(titleFromCompoundText(bytes), "compound");
    }
};

QTEST_GUILESS_MAIN(WindowTitleTests)
#include "WindowTitleTests.moc"
