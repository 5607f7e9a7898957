#include "Panorel/Prefs.h"
#include "Support/InMemoryPlatform.h"

#include <QSignalSpy>
#include <QTest>

using namespace Panorel;

class PrefsTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySwitchHasItsDefaultAndIsWrittenUnderItsKey()
    {
        const struct {
            const char *key;
            bool byDefault;
            bool (Prefs::*get)() const;
            void (Prefs::*set)(bool);
        } switches[] = {
            {"enabled", true, &Prefs::enabled, &Prefs::setEnabled},
            {"restoreAutomatically", true, &Prefs::restoreAutomatically,
             &Prefs::setRestoreAutomatically},
            {"alsoRestoreSizes", true, &Prefs::alsoRestoreSizes, &Prefs::setAlsoRestoreSizes},
            {"hasOnboarded", false, &Prefs::hasOnboarded, &Prefs::setHasOnboarded},
            {"showDockIcon", false, &Prefs::showDockIcon, &Prefs::setShowDockIcon},
            {"launchAtLogin", false, &Prefs::launchAtLogin, &Prefs::setLaunchAtLogin},
            {"placeNewApps", true, &Prefs::placeNewApps, &Prefs::setPlaceNewApps},
            {"hideOthersOnSwitch", false, &Prefs::hideOthersOnSwitch,
             &Prefs::setHideOthersOnSwitch},
            {"tipDismissed", false, &Prefs::tipDismissed, &Prefs::setTipDismissed},
        };
        for (const auto &[name, byDefault, get, set] : switches) {
            const QString key = QString::fromLatin1(name);
            InMemoryPlatform platform;
            Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
            QVERIFY2((prefs.*get)() == byDefault, name);
            QVERIFY2(!platform.defaults.contains(key), name); // a default is not written
            QSignalSpy changed(&prefs, &Prefs::changed);
            (prefs.*set)(!byDefault);
            (prefs.*set)(!byDefault);
            QCOMPARE(changed.count(), 2); // every assignment notifies
            QVERIFY2(platform.defaults.boolean(key) == !byDefault, name);
            const Prefs later(platform.defaults, platform.activationPolicy(), platform.loginItem());
            QVERIFY2((later.*get)() == !byDefault, name);
        }
    }

    void aValueOfTheWrongTypeCountsAsNotSet()
    {
        InMemoryPlatform platform;
        platform.defaults.setData(QStringLiteral("enabled"), "no");
        platform.defaults.setBoolean(QStringLiteral("displaySettleSeconds"), true);
        Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QVERIFY(prefs.enabled());
        QCOMPARE(prefs.displaySettleSeconds(), 1.5);
        prefs.setDisplaySettleSeconds(3);
        QCOMPARE(platform.defaults.number(QStringLiteral("displaySettleSeconds")), 3.0);
    }

    void dockIconAndLoginItemFollowAtOnceButNotAtStart()
    {
        InMemoryPlatform platform;
        platform.defaults.setBoolean(QStringLiteral("showDockIcon"), true);
        platform.defaults.setBoolean(QStringLiteral("launchAtLogin"), true);
        Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QVERIFY(!platform.policy && !platform.registeredAtLogin);
        for (const bool isOn : {true, false}) {
            prefs.setShowDockIcon(isOn);
            prefs.setLaunchAtLogin(isOn);
            QCOMPARE(platform.policy == ActivationPolicy::Regular, isOn);
            QCOMPARE(platform.registeredAtLogin, isOn);
        }
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
        QVERIFY(platform.defaults.contains(QStringLiteral("undoHotKey")));
        for (const auto set : {&Prefs::setStashHotKey, &Prefs::setRestoreHotKey,
                               &Prefs::setSaveLayoutHotKey, &Prefs::setUndoHotKey})
            (prefs.*set)(std::nullopt);
        QVERIFY(!prefs.restoreHotKey() && platform.defaults.values.empty());

        const Prefs later(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QVERIFY(later.stashHotKey() && later.restoreHotKey() && later.saveLayoutHotKey());
        QVERIFY(!later.undoHotKey());
    }
};

QTEST_GUILESS_MAIN(PrefsTests)
#include "PrefsTests.moc"
