#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/State/StateExport.h"
#include "Support/TestHome.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTest>

namespace Panorel {

namespace {

/// The document's tables: under each heading the keys, "x" or "x, optional".
using Tables = std::map<QString, QStringList>;

/// As the program reads and writes them.
template <typename Record> QStringList keysOf()
{
    QStringList rows;
    const auto row = [&](const auto &field) {
        rows << QLatin1String(field.key)
                    + (field.required ? QString() : QStringLiteral(", optional"));
    };
    std::apply([&](const auto &...field) { (row(field), ...); }, Fields<Record>::table);
    rows.sort();
    return rows;
}

struct Document {
    Tables tables;
    std::map<QString, QByteArray> examples; ///< under each heading the JSON
};

Document stateDocument()
{
    static const QRegularExpression row(QStringLiteral("^\\| `(\\w+)` \\| ([^|]+) \\|"));
    Document document;
    QString heading;
    bool inExample = false;
    const QString text =
        QString::fromUtf8(readFile(QStringLiteral(PANOREL_SOURCES "/Documentation/StateFiles.md")));
    for (const QString &line : text.split(u'\n')) {
        if (line.startsWith(u'#'))
            heading = line.section(u' ', 1);
        else if (line.startsWith(QStringLiteral("```")))
            inExample = !inExample;
        else if (inExample)
            document.examples[heading] += line.toUtf8() + '\n';
        else if (const auto match = row.match(line); match.hasMatch()) {
            const bool isOptional = match.captured(2).endsWith(QStringLiteral(", optional"));
            document.tables[heading]
                << match.captured(1) + (isOptional ? QStringLiteral(", optional") : QString());
        }
    }
    for (auto &[name, rows] : document.tables)
        rows.sort();
    return document;
}

/// Whether the program reads the example and would write the same.
template <typename Body> bool isReadAndWritten(const QByteArray &example)
{
    const auto body = PanorelJSON::decoder().decode<Body>(example);
    return QJsonDocument::fromJson(PanorelJSON::encoder().encode(body))
           == QJsonDocument::fromJson(example);
}

} // namespace

/// The document on the state files lists what the program reads and writes.
class StateDocumentTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyKeyIsThere()
    {
        QStringList whole = QJsonDocument::fromJson(StateExport::encode({})).object().keys();
        whole.sort();
        const Tables expected{{QStringLiteral("An export"), whole},
                              {QStringLiteral("state"), keysOf<SavedState>()},
                              {QStringLiteral("layouts.json"), keysOf<LayoutFile>()},
                              {QStringLiteral("layout"), keysOf<Layout>()},
                              {QStringLiteral("display"), keysOf<DisplayInfo>()},
                              {QStringLiteral("window"), keysOf<WindowRecord>()},
                              {QStringLiteral("scenes.json"), keysOf<SceneFile>()},
                              {QStringLiteral("scene"), keysOf<SceneRecord>()},
                              {QStringLiteral("key combination"), keysOf<HotKeyCombo>()},
                              {QStringLiteral("rule"), keysOf<AppRule>()},
                              {QStringLiteral("placement"), keysOf<AppPlacement>()},
                              {QStringLiteral("usage.json"), keysOf<UsageData>()},
                              {QStringLiteral("trigger"), keysOf<TriggerRecord>()},
                              {QStringLiteral("time"), keysOf<TimeTrigger>()},
                              {QStringLiteral("calendarVideo"), keysOf<CalendarVideoTrigger>()},
                              {QStringLiteral("Panorel.ini"), keysOf<PreferenceValues>()}};
        QCOMPARE(stateDocument().tables, expected);
    }

    void everyFileHasAnExampleThatIsRead()
    {
        auto examples = stateDocument().examples;
        const auto example = [&](const char *name) { return examples[QLatin1String(name)]; };
        QVERIFY(isReadAndWritten<LayoutFile>(example("window")));
        QVERIFY(isReadAndWritten<SceneFile>(example("key combination")));
        QVERIFY(isReadAndWritten<std::vector<AppRule>>(example("rule")));
        QVERIFY(isReadAndWritten<std::vector<TriggerRecord>>(example("calendarVideo")));
        QVERIFY(isReadAndWritten<std::vector<AppPlacement>>(example("placement")));
        QVERIFY(isReadAndWritten<UsageData>(example("usage.json")));
        QCOMPARE(examples.size(), std::size_t(6));
    }
};

} // namespace Panorel

QTEST_GUILESS_MAIN(Panorel::StateDocumentTests)
#include "StateDocumentTests.moc"
