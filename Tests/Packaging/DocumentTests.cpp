#include "Support/TestHome.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Panorel;

namespace {

const QString root = QStringLiteral(PANOREL_SOURCES);

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

} // namespace

/// What the documents name is there.
class DocumentTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyLinkLeadsSomewhere()
    {
        int count = 0;
        for (const QString &path : documents()) {
            const QString text = QString::fromUtf8(readFile(path));
            for (const QString &link : allMatches(text, R"(\]\(([^)]+)\))")) {
                const QString target = link.section(u'#', 0, 0);
                const QString file =
                    target.isEmpty() ? path : QFileInfo(path).dir().filePath(target);
                QVERIFY2(QFileInfo::exists(file), qPrintable(path + QStringLiteral(": ") + link));
                const QString anchor = link.section(u'#', 1);
                QSet<QString> anchors;
                for (const QString &heading :
                     allMatches(QString::fromUtf8(readFile(file)), "^#+ (.*)$"))
                    anchors.insert(anchorOf(heading));
                QVERIFY2(anchor.isEmpty() || anchors.contains(anchor), qPrintable(link));
                ++count;
            }
        }
        QVERIFY(count > 15);
    }

    void everyScriptPresetAndTestProgramIsThere()
    {
        const QString presets =
            QString::fromUtf8(readFile(root + QStringLiteral("/CMakePresets.json")));
        const QSet<QString> known = allMatches(presets, R"-("name": "([a-z]+)")-");
        QSet<QString> scripts;
        for (const QString &path : documents()) {
            const QString text = QString::fromUtf8(readFile(path));
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
};

QTEST_GUILESS_MAIN(DocumentTests)
#include "DocumentTests.moc"
