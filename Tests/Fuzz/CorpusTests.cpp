#include "Fuzz/Fuzz.h"
#include "Support/TestHome.h"

#include <QDir>
#include <QTest>

#include <stdexcept>

using namespace Panorel;

/// Every input that once broke a reader, or reached a corner of it, is tried again.
class CorpusTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readersKeepTheirPromises()
    {
        for (const Fuzz::Target *target : Fuzz::targets) {
            const QDir folder(QStringLiteral(PANOREL_CORPUS "/") + QLatin1String(target->name));
            const QStringList names = folder.entryList(QDir::Files);
            QVERIFY2(!names.isEmpty(), target->name);
            target->check({});
            for (const QString &name : names) {
                try {
                    target->check(readFile(folder.filePath(name)));
                } catch (const std::exception &broken) {
                    QFAIL(qPrintable(name + QStringLiteral(": ") + QLatin1String(broken.what())));
                }
            }
        }
    }

private:
    TestHome m_home;
};

QTEST_GUILESS_MAIN(CorpusTests)
#include "CorpusTests.moc"
