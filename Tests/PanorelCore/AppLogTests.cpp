#include "PanorelCore/Files/AppLog.h"
#include "Support/TestDataDir.h"

#include <QFile>
#include <QTest>

#include <thread>

using namespace Panorel;
using namespace std::chrono_literals;

class AppLogTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLineCarriesTheTimeOfItsCall()
    {
        TestDataDir dir;
        dir.log.log(QStringLiteral("store: first"));
        dir.clock.advance(999ms); // the fraction is dropped
        dir.log.log(QStringLiteral("two\nlines"));
        dir.clock.advance(1ms);
        dir.log.log(QStringLiteral("Grüße 100%1"));
        dir.log.flush();
        QCOMPARE(dir.read(QStringLiteral("app.log")),
                 QByteArray("[2024-05-13T09:20:00Z] store: first\n"
                            "[2024-05-13T09:20:00Z] two\nlines\n"
                            "[2024-05-13T09:20:01Z] Gr\xC3\xBC\xC3\x9F"
                            "e 100%1\n"));
    }

    void theLogIsForItsUserOnly()
    {
        TestDataDir dir;
        const QString folder = dir.path(QStringLiteral("new/data"));
        qputenv("PANOREL_DATA_DIR", folder.toUtf8());
        dir.log.log(QStringLiteral("a window title"));
        dir.log.flush();
        const auto others = QFileDevice::Permissions(0x0077);
        const QString log = folder + QStringLiteral("/app.log");
        QVERIFY(QFile::exists(log));
        QVERIFY(!(QFile::permissions(log) & others));
        QVERIFY(!(QFile::permissions(folder) & others));
    }

    void aLineThatWasCutOffKeepsToItself()
    {
        TestDataDir dir;
        dir.write(QStringLiteral("app.log"), "[2024-05-13T09:19:00Z] learned la");
        QCOMPARE(dir.logged(), QStringList{QStringLiteral("learned la")});
        dir.log.log(QStringLiteral("next"));
        QCOMPARE(dir.logged(), (QStringList{QStringLiteral("learned la"), QStringLiteral("next")}));
    }

    void linesOfTwoThreadsStayWholeAndInOrder()
    {
        TestDataDir dir;
        const auto writeMany = [&dir](const QString &name) {
            for (int i = 0; i < 200; ++i)
                dir.log.log(name + QString::number(i));
        };
        std::thread other(writeMany, QStringLiteral("b"));
        writeMany(QStringLiteral("a"));
        other.join();
        std::map<QChar, int> next;
        const QStringList lines = dir.logged();
        QCOMPARE(lines.size(), 400);
        for (const QString &line : lines)
            QCOMPARE(line.mid(1), QString::number(next[line.at(0)]++));
    }
};

QTEST_GUILESS_MAIN(AppLogTests)
#include "AppLogTests.moc"
