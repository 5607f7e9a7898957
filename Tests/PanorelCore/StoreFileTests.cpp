#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Files/Paths.h"
#include "PanorelCore/Records/ModelCoding.h"
#include "Support/TestDataDir.h"

#include <QFile>
#include <QTest>

#include <sys/stat.h>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString rules = QStringLiteral("rules.json");
const QString aside = QStringLiteral("rules.json.corrupt-1715592000");

using Rules = std::vector<AppRule>;

struct Store {
    explicit Store(TestDataDir &dir) : json(Paths::file(rules), dir.log, dir.clock) {}
    JSONStore<Rules> json;
};

} // namespace

class StoreFileTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatIsSavedIsLoadedAndNothingElseLeft()
    {
        TestDataDir dir;
        const Rules value{{QStringLiteral("org.example/a"), true, false}};
        QVERIFY(!Store(dir).json.load());
        QCOMPARE(dir.names(), QStringList()); // and nothing is logged
        dir.write(rules, "[]");
        QFile::setPermissions(dir.path(rules),
                              QFile::permissions(dir.path(rules)) | QFile::ReadOther);
        Store(dir).json.save(value);
        const QByteArray bytes = dir.read(rules);
        QCOMPARE(Store(dir).json.load(), value);
        Store(dir).json.save(value);
        QCOMPARE(dir.read(rules), bytes);
        QCOMPARE(dir.names(), QStringList{rules});
        QVERIFY(!(QFile::permissions(dir.path(rules)) & QFileDevice::Permissions(0x0077)));
        QCOMPARE(dir.logged(), QStringList());
    }

    void aFileThatIsNotUnderstoodIsKeptAside()
    {
        const QByteArray rule = R"({"bundleID": "a", "ignored": true, "restoreSize": true})";
        const QByteArray bad = R"({"bundleID": "b", "ignored": 0, "restoreSize": true})";
        const std::pair<QByteArray, const char *> rows[] = {
            {QByteArray(), ""},
            {'[' + rule + ", " + bad + ']', "expected true or false at [1].ignored"},
            {"[\"\xFF\xFE\"]" + QByteArray(8, '\0'), ""},
            {QByteArray(1'000'000, '['), ""},
        };
        for (const auto &[bytes, reason] : rows) {
            TestDataDir dir;
            dir.clock.advance(999ms); // the name takes whole seconds
            dir.write(rules, bytes);
            Store store(dir);
            QVERIFY(!store.json.load());
            QVERIFY(dir.read(aside) == bytes);
            QVERIFY(!QFile::exists(dir.path(rules)));
            const QString logged = dir.logged().join(u'|');
            const QString start = QStringLiteral("store: rules.json was corrupt, moved aside (");
            QVERIFY2(logged.startsWith(start + QLatin1String(reason)), qPrintable(logged));
            QVERIFY2(logged.endsWith(u')') && !logged.contains(u'|'), qPrintable(logged));
            store.json.save({});
            QCOMPARE(Store(dir).json.load(), Rules());
        }
    }

    void twoCorruptFilesInOneSecond()
    {
        TestDataDir dir;
        dir.write(aside, "first");
        dir.write(rules, "second");
        Store store(dir);
        QVERIFY(!store.json.load());
        QCOMPARE(dir.read(rules), QByteArray("second"));
        QCOMPARE(dir.read(aside), QByteArray("first"));
        store.json.save({});
        QCOMPARE(Store(dir).json.load(), Rules());
    }

    void whatCannotBeReadIsMovedAsideBeforeTheFirstSave()
    {
        for (const bool isFolder : {true, false}) { // or a pipe, which nobody writes to
            TestDataDir dir;
            const QByteArray path = dir.path(rules).toUtf8();
            QCOMPARE(isFolder ? mkdir(path, 0700) : mkfifo(path, 0600), 0);
            if (isFolder)
                dir.write(rules + QStringLiteral("/precious"), "kept");
            Store store(dir);
            QVERIFY(!store.json.load());
            QCOMPARE(dir.logged(), QStringList()); // unreadable is as good as missing, so far
            const Rules value{{QStringLiteral("a"), true, true}};
            store.json.save(value);
            QCOMPARE(Store(dir).json.load(), value);
            QVERIFY(QFile::exists(dir.path(aside)));
            QCOMPARE(dir.read(aside + QStringLiteral("/precious")).contains("kept"), isFolder);
            const auto line = QStringLiteral("store: rules.json could not be read, moved aside");
            QCOMPARE(dir.logged(), QStringList{line});
            store.json.save({});
            QCOMPARE(Store(dir).json.load(), Rules());
        }
    }

    void whatCannotBeMovedAsideIsNotOverwritten()
    {
        TestDataDir dir;
        const QString inside = rules + QStringLiteral("/precious");
        dir.write(inside, "kept");
        dir.write(aside, "older");
        Store store(dir);
        QVERIFY(!store.json.load());
        store.json.save({});
        QCOMPARE(dir.read(inside), "kept");
        QCOMPARE(dir.read(aside), "older");
        QCOMPARE(dir.logged().size(), 1);
        QVERIFY(dir.logged()[0].startsWith(u"store: failed to save rules.json: "));
    }

    void aValueWithoutAFormLeavesTheFile()
    {
        TestDataDir dir;
        const QString name = QStringLiteral("windows.json");
        JSONStore<std::vector<WindowRecord>> store(Paths::file(name), dir.log, dir.clock);
        store.save({});
        const QByteArray before = dir.read(name);
        WindowRecord window;
        window.frame.x = std::numeric_limits<double>::infinity();
        store.save({window});
        QCOMPARE(dir.read(name), before);
        QCOMPARE(dir.logged(), QStringList{QStringLiteral(
                                   "store: failed to save windows.json: a number is not finite")});
    }

    void theDataDirectoryIsTakenAsItStands()
    {
        // Empty is the current directory; "~" means no home; what can't be made is done without.
        for (const char *variable : {"", "a/b/", "~/x", "file/x"}) {
            TestDataDir dir;
            dir.write(QStringLiteral("file"), "kept");
            QVERIFY(QDir::setCurrent(dir.path({})));
            qputenv("PANOREL_DATA_DIR", variable);
            Store(dir).json.save({{QStringLiteral("a"), true, true}});
            QVERIFY(QDir::setCurrent(QDir::rootPath()));
            QCOMPARE(dir.read(QStringLiteral("file")), QByteArray("kept"));
            const QString folder = QString::fromLatin1(variable);
            if (folder.startsWith(QLatin1String("file")))
                continue;
            QVERIFY2(dir.read(QDir(folder).filePath(rules)).contains("ignored"), variable);
            const auto permissions = QFile::permissions(dir.path(folder));
            QVERIFY(!(permissions & QFileDevice::Permissions(0x0077)));
        }
    }
};

QTEST_GUILESS_MAIN(StoreFileTests)
#include "StoreFileTests.moc"
