#include "Support/TestHome.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Panorel;

namespace {

const QString root = QStringLiteral(PANOREL_SOURCES);

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

bool mentions(const QString &text, const QString &word)
{
    const QString pattern = QStringLiteral("\\b%1\\b").arg(QRegularExpression::escape(word));
    return text.contains(QRegularExpression(pattern));
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
                ++count;
            }
        }
        QVERIFY(count > 15);
    }

    void everyScriptIsThere()
    {
        QSet<QString> scripts;
        for (const QString &path : documents())
            scripts += allMatches(contents(path), R"(\b(scripts/[a-z-]+)\b(?!/))");
        QVERIFY(scripts.contains(QStringLiteral("scripts/demo")));
        for (const QString &script : std::as_const(scripts))
            QVERIFY2(QFileInfo(root + u'/' + script).isExecutable(), qPrintable(script));
    }

    /// The document on the macOS port says which file calls what, and which test runs it.
    void everyRowOnThePortNamesACallAndATestThatAreThere()
    {
        static const QRegularExpression form(
            QStringLiteral("^\\| (`.*`) \\| (\\S+) \\| (\\S+): (\\w+) \\|$"),
            QRegularExpression::MultilineOption);
        const QString document = contents(root + QStringLiteral("/Documentation/macOS.md"));
        int rows = 0;
        for (auto found = form.globalMatch(document); found.hasNext(); ++rows) {
            const auto row = found.next();
            const QString caller =
                contents(root + QStringLiteral("/Sources/PanorelMac/") + row.captured(2));
            for (const QString &operation : allMatches(row.captured(1), "`([^`]+)`"))
                QVERIFY2(mentions(caller, operation), qPrintable(row.captured()));
            const QString tests =
                contents(root + QStringLiteral("/Tests/MacDoubles/") + row.captured(3));
            QVERIFY2(tests.contains(QStringLiteral("void %1()").arg(row.captured(4))),
                     qPrintable(row.captured()));
        }
        QVERIFY(rows > 20);
    }
};

QTEST_GUILESS_MAIN(DocumentTests)
#include "DocumentTests.moc"
