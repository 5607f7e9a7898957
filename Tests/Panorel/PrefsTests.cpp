#include "Panorel/Prefs.h"
#include "Support/InMemoryPlatform.h"

#include <QSignalSpy>
#include <QTest>

using namespace Panorel;

class PrefsTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyValueIsWrittenUnderItsKeyAndReadAgain()
    {
        InMemoryPlatform platform;
        Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        const HotKeyCombo key{32, HotKeyCombo::control};
        const PreferenceValues others{false, false, false, true, true, true, false,
                                      true,  3,     true,  key,  key,  key,  key};
        const QSignalSpy changed(&prefs, &Prefs::changed);
        prefs.assignAll(others);
        QCOMPARE(changed.count(), 14);
        QStringList keys;
        for (const auto &[name, value] : platform.defaults.values)
            keys << name;
        QCOMPARE(
            keys.join(u' '),
            QStringLiteral("alsoRestoreSizes displaySettleSeconds enabled hasOnboarded "
                           "hideOthersOnSwitch launchAtLogin placeNewApps restoreAutomatically "
                           "restoreHotKey saveLayoutHotKey showDockIcon stashHotKey "
                           "tipDismissed undoHotKey"));
        QVERIFY(platform.policy == ActivationPolicy::Regular && platform.registeredAtLogin);
        const Prefs later(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QVERIFY(later.values() == others);
    }

    void aValueOfTheWrongTypeCountsAsNotSet()
    {
        InMemoryPlatform platform;
        platform.defaults.setData(QStringLiteral("enabled"), "no");
        platform.defaults.setBoolean(QStringLiteral("displaySettleSeconds"), true);
        const Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QVERIFY(prefs.enabled());
        QCOMPARE(prefs.displaySettleSeconds(), 1.5);
    }

    void hotKeysAreRepairedEachInItsOwnWay()
    {
        const QStringList keys{QStringLiteral("stashHotKey"), QStringLiteral("restoreHotKey"),
                               QStringLiteral("saveLayoutHotKey"), QStringLiteral("undoHotKey")};
        const std::pair<QByteArray, const char *> storedAndShown[] = {
            {{}, "⌥⇧S|⇧⌘R|⇧⌘S|"}, // a fresh user
            {"{\"keyCode\":", "⌥⇧S|||"},
            {"{\"keyCode\":49,\"modifiers\":4096}", "⌃Space|⌃Space|⌃Space|⌃Space"}};
        for (const auto &[stored, expected] : storedAndShown) {
            InMemoryPlatform platform;
            for (qsizetype i = 0; i < keys.size() && !stored.isNull(); ++i)
                platform.defaults.setData(keys[i], stored);
            const Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
            QStringList shown;
            for (const auto &combo : {prefs.stashHotKey(), prefs.restoreHotKey(),
                                      prefs.saveLayoutHotKey(), prefs.undoHotKey()}) {
                const QString &key = keys[shown.size()];
                QCOMPARE(platform.defaults.contains(key), combo.has_value()); // saved back
                shown << (combo ? combo->displayString() : QString());
            }
            QCOMPARE(shown.join(u'|'), QString::fromUtf8(expected));
        }
    }

    void aClearedKeyComesBackAtTheNextLaunchButUndo()
    {
        InMemoryPlatform platform;
        Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        prefs.setUndoHotKey(HotKeyCombo{6, HotKeyCombo::command});
        for (const auto set : {&Prefs::setRestoreHotKey, &Prefs::setUndoHotKey})
            (prefs.*set)(std::nullopt);
        QVERIFY(!prefs.restoreHotKey() && !prefs.undoHotKey());
        const Prefs later(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QVERIFY(later.restoreHotKey() && !later.undoHotKey());
    }
};

QTEST_GUILESS_MAIN(PrefsTests)
#include "PrefsTests.moc"
