#include "Support/TestHome.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

namespace {

const QString root = QStringLiteral(PANOREL_SOURCES "/");
const QString port = root + QStringLiteral("Sources/PanorelMac/");

QString contents(const QString &path)
{
    return QString::fromUtf8(Panorel::readFile(path));
}

bool mentions(const QString &text, const QString &word)
{
    const QString pattern = QStringLiteral("\\b%1\\b").arg(QRegularExpression::escape(word));
    return text.contains(QRegularExpression(pattern));
}

/// One line of the document's table.
struct Row {
    QStringList operations;
    QString caller;
    QString testFile;
    QString test;
};

std::vector<Row> table()
{
    static const QRegularExpression form(
        QStringLiteral("^\\| (`.*`) \\| (\\S+) \\| (\\S+): (\\w+) \\|$"),
        QRegularExpression::MultilineOption);
    std::vector<Row> rows;
    const QString document = contents(root + QStringLiteral("Documentation/macOS.md"));
    for (auto found = form.globalMatch(document); found.hasNext();) {
        const auto row = found.next();
        const QString operations = row.captured(1).remove(u'`');
        rows.push_back({operations.split(QStringLiteral(", ")), row.captured(2), row.captured(3),
                        row.captured(4)});
    }
    return rows;
}

} // namespace

/// The document on the macOS port says which file calls what, and which test runs it.
class MacDocumentTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRowNamesACallAndATestThatAreThere()
    {
        const auto rows = table();
        QVERIFY(rows.size() > 20);
        for (const Row &row : rows) {
            const QString caller = contents(port + row.caller);
            for (const QString &operation : row.operations)
                QVERIFY2(mentions(caller, operation), qPrintable(row.caller + u' ' + operation));
            const QString tests =
                contents(root + QStringLiteral("Tests/MacDoubles/") + row.testFile);
            QVERIFY2(tests.contains(QStringLiteral("void %1()").arg(row.test)),
                     qPrintable(row.testFile + u' ' + row.test));
        }
    }

    void everyCallOfACInterfaceHasItsRow()
    {
        static const QRegularExpression call(
            QStringLiteral("\\b(?:(?:AX|CG|CFPreferences|dispatch_)\\w+|\\w+Event(?:HotKey|Handler|"
                           "Parameter|DispatcherTarget))(?=\\()"));
        QSet<QString> named;
        for (const Row &row : table())
            named.unite({row.operations.begin(), row.operations.end()});
        QSet<QString> called;
        QDirIterator files(port, {QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString text = contents(files.next());
            for (auto found = call.globalMatch(text); found.hasNext();)
                called.insert(found.next().captured());
        }
        QVERIFY(called.contains(QStringLiteral("RegisterEventHotKey")));
        QCOMPARE(QStringList((called - named).values()), QStringList());
    }
};

QTEST_GUILESS_MAIN(MacDocumentTests)
#include "MacDocumentTests.moc"
