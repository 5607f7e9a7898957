#include "Panorel/Prefs.h"
#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/State/StateExport.h"
#include "Support/InMemoryPlatform.h"
#include "Support/TestHome.h"

#include <QJsonDocument>
#include <QRegularExpression>
#include <QTest>

namespace Panorel {

namespace {

/// What the document calls a record.
template <typename Record> constexpr const char *nameOf = nullptr;
template <> constexpr const char *nameOf<DisplayInfo> = "display";
template <> constexpr const char *nameOf<WindowRecord> = "window";
template <> constexpr const char *nameOf<Layout> = "layout";
template <> constexpr const char *nameOf<LayoutFile> = "layouts.json";
template <> constexpr const char *nameOf<HotKeyCombo> = "key combination";
template <> constexpr const char *nameOf<SceneRecord> = "scene";
template <> constexpr const char *nameOf<SceneFile> = "scenes.json";
template <> constexpr const char *nameOf<AppRule> = "rule";
template <> constexpr const char *nameOf<AppPlacement> = "placement";
template <> constexpr const char *nameOf<UsageData> = "usage.json";
template <> constexpr const char *nameOf<TimeTrigger> = "time";
template <> constexpr const char *nameOf<CalendarVideoTrigger> = "calendarVideo";
template <> constexpr const char *nameOf<TriggerRecord> = "trigger";
template <> constexpr const char *nameOf<PreferenceValues> = "Panorel.ini";
template <> constexpr const char *nameOf<SavedState> = "state";

/// The document's tables: under each heading "key: type".
using Tables = std::map<QString, QStringList>;

/// The tables of a record and of all that it is made of, as the program reads and writes them.
class RecordTables {
public:
    template <FieldedRecord Record> QString typeOf(const Record *)
    {
        const QString name = QLatin1String(nameOf<Record>);
        if (!m_tables.contains(name)) {
            QStringList &rows = m_tables[name];
            const auto row = [&]<typename Value>(const Field<Record, Value> &field) {
                rows << QStringLiteral("%1: %2%3")
                            .arg(QLatin1String(field.key),
                                 typeOf(static_cast<const Value *>(nullptr)),
                                 field.required ? QString() : QStringLiteral(", optional"));
            };
            std::apply([&](const auto &...field) { (row(field), ...); }, Fields<Record>::table);
            rows.sort();
        }
        return name;
    }

    const Tables &tables() const { return m_tables; }

private:
    QString typeOf(const bool *) { return QStringLiteral("true or false"); }
    QString typeOf(const qint64 *) { return QStringLiteral("integer"); }
    QString typeOf(const quint32 *) { return QStringLiteral("integer"); }
    QString typeOf(const double *) { return QStringLiteral("number"); }
    QString typeOf(const QString *) { return QStringLiteral("text"); }
    QString typeOf(const QUuid *) { return QStringLiteral("UUID"); }
    QString typeOf(const Instant *) { return QStringLiteral("date"); }
    QString typeOf(const Rect *) { return QStringLiteral("frame"); }
    QString typeOf(const std::map<QString, QString> *) { return QStringLiteral("object of texts"); }
    QString typeOf(const TriggerKind *)
    {
        typeOf(static_cast<const TimeTrigger *>(nullptr));
        typeOf(static_cast<const CalendarVideoTrigger *>(nullptr));
        return QStringLiteral("kind");
    }
    template <typename Value> QString typeOf(const std::optional<Value> *)
    {
        return typeOf(static_cast<const Value *>(nullptr));
    }
    template <typename Element> QString typeOf(const std::vector<Element> *)
    {
        return QStringLiteral("list of %1s").arg(typeOf(static_cast<const Element *>(nullptr)));
    }
    template <typename Element> QString typeOf(const std::set<Element> *)
    {
        return typeOf(static_cast<const std::vector<Element> *>(nullptr));
    }

    Tables m_tables;
};

struct Document {
    Tables tables;
    std::map<QString, QByteArray> examples; ///< under each heading the JSON
    std::map<QString, QString> defaults;    ///< of the settings
};

Document stateDocument()
{
    static const QRegularExpression row(
        QStringLiteral("^\\| `(\\w+)` \\| ([^|]+) \\|(?: ([^|]*) \\|)?"));
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
            document.tables[heading]
                << match.captured(1) + QStringLiteral(": ") + match.captured(2);
            if (heading == QLatin1String(nameOf<PreferenceValues>))
                document.defaults[match.captured(1)] = match.captured(3);
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
    void everyKeyIsThereWithItsType()
    {
        RecordTables records;
        records.typeOf(static_cast<const SavedState *>(nullptr));
        Tables described = stateDocument().tables;
        const QJsonObject whole = QJsonDocument::fromJson(StateExport::encode({})).object();
        QCOMPARE(described[QStringLiteral("An export")].size(), whole.size());
        for (const QString &key : whole.keys())
            QVERIFY(!described[QStringLiteral("An export")].filter(key + u':').isEmpty());
        described.erase(QStringLiteral("An export"));
        for (const auto &[name, rows] : records.tables())
            QCOMPARE(std::exchange(described[name], {}), rows);
        for (const auto &[name, rows] : described)
            QVERIFY2(rows.isEmpty(), qPrintable(name));
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

    void everySettingHasItsDefault()
    {
        InMemoryPlatform platform;
        const Prefs prefs(platform.userDefaults(), platform.activationPolicy(),
                          platform.loginItem());
        const PreferenceValues values = prefs.values();
        auto described = stateDocument().defaults;
        const auto check = [&]<typename Value>(const Field<PreferenceValues, Value> &field) {
            const Value &value = values.*field.member;
            QString text;
            if constexpr (std::is_same_v<Value, std::optional<HotKeyCombo>>)
                text = value ? value->pcString() : QStringLiteral("none");
            else
                text = QVariant(value).toString();
            QCOMPARE(described[QLatin1String(field.key)], text);
        };
        std::apply([&](const auto &...field) { (check(field), ...); },
                   Fields<PreferenceValues>::table);
    }
};

} // namespace Panorel

QTEST_GUILESS_MAIN(Panorel::StateDocumentTests)
#include "StateDocumentTests.moc"
