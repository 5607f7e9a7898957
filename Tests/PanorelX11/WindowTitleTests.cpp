#include "PanorelX11/Windows/WindowTitle.h"

#include <QObject>
#include <QTest>

using namespace Panorel::X11;

class WindowTitleTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyTitleIsValidText()
    {
        struct Row {
            const char *name;
            QByteArray bytes;
            QString compound;
            QString utf8 = compound;
        };
        const Row rows[] = {
            {"kept as it is", " a  b\n", QStringLiteral(" a  b\n")},
            {"Latin-1", "\xfc", QStringLiteral("\u00fc"), QStringLiteral("\uFFFD")},
            {"ends at a NUL", QByteArray("ab\0cd", 5), QStringLiteral("ab")},
            {"cut within a character", "a\xc3", QStringLiteral("a\u00c3"),
             QStringLiteral("a\uFFFD")},
            {"UTF-8 in compound text",
             "a\x1b%G\xc3\xbc\x1b%@\xfc",
             QStringLiteral("a\u00fc\u00fc"),
             {}},
            {"another character set", "a\x1b$(B0l\x1b(Bz", QStringLiteral("a\uFFFD\uFFFDz"), {}},
            {"ends within an escape sequence", "a\x1b", QStringLiteral("a"), {}},
        };
        for (const Row &row : rows) {
            QVERIFY2(titleFromCompoundText(row.bytes) == row.compound, row.name);
            QVERIFY2(row.utf8.isNull() || titleFromUtf8(row.bytes) == row.utf8, row.name);
        }
    }
};

QTEST_GUILESS_MAIN(WindowTitleTests)
#include "WindowTitleTests.moc"
