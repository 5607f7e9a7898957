#include "PanorelCore/Files/Paths.h"
#include "PanorelCore/Stores/AppRuleStore.h"
#include "Support/TestDataDir.h"
#include "Support/TestHome.h"

#include <QFile>
#include <QTest>

#include <csignal>
#include <linux/capability.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Panorel;

namespace {

const QString rulesFile = QStringLiteral("rules.json");
constexpr auto noWriting = QFileDevice::ReadOwner | QFileDevice::ExeOwner;

void setLimit(decltype(RLIMIT_FSIZE) resource, rlim_t soft)
{
    rlimit limit{};
    getrlimit(resource, &limit);
    limit.rlim_cur = std::min(soft, limit.rlim_max);
    setrlimit(resource, &limit);
}

/// Permissions then bind root as well.
void giveUpPrivileges()
{
    __user_cap_header_struct header{_LINUX_CAPABILITY_VERSION_3, 0};
    const __user_cap_data_struct none[2]{};
    syscall(SYS_capset, &header, none);
}

struct Fault {
    const char *name;
    std::function<void(const QString &dataDir)> begin;
    std::function<void(const QString &dataDir)> end;
    int logLines;    ///< that say that a save has failed; one for each
    int errorLines;  ///< on stderr, where the log itself can't be written
    bool startsAnew; ///< saves go on while it lasts, and the log begins again
};

const Fault faults[] = {
    {"a full disk",
     [](const QString &) {
         std::signal(SIGXFSZ, SIG_IGN); // it would end the process
         setLimit(RLIMIT_FSIZE, 2000);
     },
     [](const QString &) { setLimit(RLIMIT_FSIZE, RLIM_INFINITY); }, 2, 0, false},
    {"a directory that is write-protected",
     [](const QString &dir) {
         giveUpPrivileges();
         QFile::setPermissions(dir, noWriting);
     },
     [](const QString &dir) { QFile::setPermissions(dir, noWriting | QFileDevice::WriteOwner); }, 2,
     0, false},
    {"no descriptor left", [](const QString &) { setLimit(RLIMIT_NOFILE, 3); },
     [](const QString &) { setLimit(RLIMIT_NOFILE, RLIM_INFINITY); }, 0, 1, false},
    {"a directory that was removed", [](const QString &dir) { QDir(dir).removeRecursively(); },
     [](const QString &) {}, 0, 0, true},
};

/// In a process of its own: saves two changes while the fault lasts and one after it.
int saveThrough(const Fault &fault)
{
    const SystemClock clock;
    AppLog log(clock);
    log.log(QStringLiteral("before"));
    AppRuleStore rules(log, clock);
    log.flush();
    fault.begin(Paths::dataDir());
    const QString longID(3000, u'x');
    rules.set({longID, true, false});
    rules.set({longID, true, true});
    log.flush();
    fault.end(Paths::dataDir());
    const AppRuleStore stored(log, clock);
    std::printf("%s, %s\n", stored.rule(longID).restoreSize ? "saved" : "not saved",
                stored.rule(QStringLiteral("old")).ignored ? "old kept" : "old lost");
    rules.set({QStringLiteral("last"), true, false});
    log.log(QStringLiteral("after"));
    return 0;
}

} // namespace

/// What the disk and the kernel may refuse a program that stores something.
class StorageFaultTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFaultIsSaidAndLosesNothing()
    {
        for (std::size_t i = 0; i < std::size(faults); ++i) {
            qInfo("%s", faults[i].name);
            check(faults[i], QString::number(i));
        }
    }

private:
    static void check(const Fault &fault, const QString &index)
    {
        TestDataDir dir;
        const QString folder = dir.path(QStringLiteral("data"));
        qputenv("PANOREL_DATA_DIR", folder.toUtf8());
        AppRuleStore(dir.log, dir.clock).set({QStringLiteral("old"), true, false});
        const auto child = dir.again({index}, folder);
        QVERIFY(child->waitForFinished());
        QCOMPARE(child->exitStatus(), QProcess::NormalExit);
        QCOMPARE(child->readAllStandardOutput().trimmed(),
                 QByteArray(fault.startsAnew ? "saved" : "not saved") + ", old kept");
        const QByteArray errors = child->readAllStandardError();
        QVERIFY2(errors.count('\n') == fault.errorLines, errors);
        QVERIFY2(errors.isEmpty() || errors.contains("/app.log: "), errors);

        // What was not saved then is with the next change.
        const AppRuleStore rules(dir.log, dir.clock);
        QVERIFY(rules.rule(QStringLiteral("old")).ignored);
        QVERIFY(rules.rule(QStringLiteral("last")).ignored);
        QCOMPARE(rules.allRules().size(), 3u);
        QCOMPARE(QDir(folder).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{QStringLiteral("app.log"), rulesFile}));
        const QByteArray log = readFile(folder + QStringLiteral("/app.log"));
        QVERIFY2(log.count("store: failed to save rules.json: ") == fault.logLines, log);
        QVERIFY2(log.count('\n') == fault.logLines + (fault.startsAnew ? 1 : 2), log);
        QVERIFY2(log.endsWith("] after\n"), log);
    }
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    bool isChild = false;
    const int index = application.arguments().value(1).toInt(&isChild);
    if (isChild)
        return saveThrough(faults[index]);
    StorageFaultTests test;
    return QTest::qExec(&test, argc, argv);
}
#include "StorageFaultTests.moc"
