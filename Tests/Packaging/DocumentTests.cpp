#include "Support/TestHome.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Panorel;

namespace {

const QString root = QStringLiteral(PANOREL_SOURCES);
const QString macPort = root + QStringLiteral("/Sources/PanorelMac/");

QString contents(const QString &path)
{
    return QString::fromUtf8(readFile(path));
}

QStringList documents()
{
    QStringList paths;
    for (const QString &folder : {root, root + QStringLiteral("/Documentation")}) {
        for (const QFileInfo &file : QDir(folder).entryInfoList({QStringLiteral("*.md")}))
            paths.append(file.filePath());
    }
    return paths;
}

/// What the first group of the pattern matches in a text, each once.
QSet<QString> allMatches(const QString &text, const char *pattern)
{
    QSet<QString> found;
    const QRegularExpression expression(QString::fromLatin1(pattern),
                                        QRegularExpression::MultilineOption);
    for (auto match = expression.globalMatch(text); match.hasNext();)
        found.insert(match.next().captured(1));
    return found;
}

/// As links name it: lower case, blanks as dashes, without punctuation.
QString anchorOf(const QString &heading)
{
    QString anchor = heading.toLower().replace(u' ', u'-');
    return anchor.remove(QRegularExpression(QStringLiteral("[^\\w-]")));
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
    const QString document = contents(root + QStringLiteral("/Documentation/macOS.md"));
    for (auto found = form.globalMatch(document); found.hasNext();) {
        const auto row = found.next();
        const QString operations = row.captured(1).remove(u'`');
        rows.push_back({operations.split(QStringLiteral(", ")), row.captured(2), row.captured(3),
                        row.captured(4)});
    }
    return rows;
}

} // namespace

/// What the documents name is there.
class DocumentTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyLinkLeadsSomewhere()
    {
        int count = 0;
        for (const QString &path : documents()) {
            const QString text = contents(path);
            for (const QString &link : allMatches(text, R"(\]\(([^)]+)\))")) {
                const QString target = link.section(u'#', 0, 0);
                const QString file =
                    target.isEmpty() ? path : QFileInfo(path).dir().filePath(target);
                QVERIFY2(QFileInfo::exists(file), qPrintable(path + QStringLiteral(": ") + link));
                const QString anchor = link.section(u'#', 1);
                QSet<QString> anchors;
                for (const QString &heading : allMatches(contents(file), "^#+ (.*)$"))
                    anchors.insert(anchorOf(heading));
                QVERIFY2(anchor.isEmpty() || anchors.contains(anchor), qPrintable(link));
                ++count;
            }
        }
        QVERIFY(count > 15);
    }

    void everyScriptPresetAndTestProgramIsThere()
    {
        const QString presets = contents(root + QStringLiteral("/CMakePresets.json"));
        const QSet<QString> known = allMatches(presets, R"-("name": "([a-z]+)")-");
        QSet<QString> scripts;
        for (const QString &path : documents()) {
            const QString text = contents(path);
            scripts += allMatches(text, R"(\b(scripts/[a-z-]+)\b(?!/))");
            for (const QString &preset : allMatches(text, "--preset ([a-z]+)"))
                QVERIFY2(known.contains(preset), qPrintable(path + QStringLiteral(": ") + preset));
            for (const QString &program : allMatches(text, R"(build/[a-z]+/(Tests/\S+Tests?)\b)"))
                QVERIFY2(QFileInfo::exists(root + u'/' + program + QStringLiteral(".cpp")),
                         qPrintable(path + QStringLiteral(": ") + program));
        }
        QVERIFY(scripts.contains(QStringLiteral("scripts/demo")));
        for (const QString &script : std::as_const(scripts))
            QVERIFY2(QFileInfo(root + u'/' + script).isExecutable(), qPrintable(script));
    }

    /// The document on the macOS port says which file calls what, and which test runs it.
    void everyRowOnThePortNamesACallAndATestThatAreThere()
    {
        const auto rows = table();
        QVERIFY(rows.size() > 20);
        for (const Row &row : rows) {
            const QString caller = contents(macPort + row.caller);
            for (const QString &operation : row.operations)
                QVERIFY2(mentions(caller, operation), qPrintable(row.caller + u' ' + operation));
            const QString tests =
                contents(root + QStringLiteral("/Tests/MacDoubles/") + row.testFile);
            QVERIFY2(tests.contains(QStringLiteral("void %1()").arg(row.test)),
                     qPrintable(row.testFile + u' ' + row.test));
        }
    }

    void everyCallOfACInterfaceHasItsRow()
    {
        QSet<QString> named;
        for (const Row &row : table())
            named.unite({row.operations.begin(), row.operations.end()});
        QSet<QString> called;
        QDirIterator files(macPort, {QStringLiteral("*.cpp")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            called +=
                allMatches(contents(files.next()),
                           "\\b((?:AX|CG|CFPreferences|dispatch_)\\w+|\\w+Event(?:HotKey|Handler|"
                           "Parameter|DispatcherTarget))(?=\\()");
        QVERIFY(called.contains(QStringLiteral("RegisterEventHotKey")));
        QCOMPARE(QStringList((called - named).values()), QStringList());
    }
};

QTEST_GUILESS_MAIN(DocumentTests)
#include "DocumentTests.moc"
