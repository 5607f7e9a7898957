#include "Panorel/Prefs.h"
#include "Support/InMemoryPlatform.h"

#include <QSignalSpy>
#include <QTest>

using namespace Panorel;

namespace {

struct Switch {
    bool (Prefs::*get)() const;
    void (Prefs::*set)(bool);
};

} // namespace

class PrefsTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everySwitchHasItsDefaultAndIsWrittenUnderItsKey_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("byDefault");
        QTest::addColumn<Switch>("which");
        const auto row = [](const char *key, bool byDefault, const Switch &which) {
            QTest::newRow(key) << QString::fromLatin1(key) << byDefault << which;
        };
        row("enabled", true, {&Prefs::enabled, &Prefs::setEnabled});
        row("restoreAutomatically", true,
            {&Prefs::restoreAutomatically, &Prefs::setRestoreAutomatically});
        row("alsoRestoreSizes", true, {&Prefs::alsoRestoreSizes, &Prefs::setAlsoRestoreSizes});
        row("hasOnboarded", false, {&Prefs::hasOnboarded, &Prefs::setHasOnboarded});
        row("showDockIcon", false, {&Prefs::showDockIcon, &Prefs::setShowDockIcon});
        row("launchAtLogin", false, {&Prefs::launchAtLogin, &Prefs::setLaunchAtLogin});
        row("placeNewApps", true, {&Prefs::placeNewApps, &Prefs::setPlaceNewApps});
        row("hideOthersOnSwitch", false,
            {&Prefs::hideOthersOnSwitch, &Prefs::setHideOthersOnSwitch});
        row("tipDismissed", false, {&Prefs::tipDismissed, &Prefs::setTipDismissed});
    }

    void everySwitchHasItsDefaultAndIsWrittenUnderItsKey()
    {
        QFETCH(QString, key);
        QFETCH(bool, byDefault);
        QFETCH(Switch, which);
        InMemoryPlatform platform;
        Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QCOMPARE((prefs.*which.get)(), byDefault);
        QVERIFY(!platform.defaults.contains(key)); // a default is not written

        QSignalSpy changed(&prefs, &Prefs::changed);
        (prefs.*which.set)(!byDefault);
        (prefs.*which.set)(!byDefault);
        QCOMPARE(changed.count(), 2); // every assignment notifies
        QCOMPARE(platform.defaults.boolean(key), !byDefault);

        const Prefs later(platform.defaults, platform.activationPolicy(), platform.loginItem());
        QCOMPARE((later.*which.get)(), !byDefault);
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
        prefs.setShowDockIcon(true);
        prefs.setLaunchAtLogin(true);
        QVERIFY(platform.policy == ActivationPolicy::Regular);
        QCOMPARE(platform.registeredAtLogin, true);
        prefs.setShowDockIcon(false);
        prefs.setLaunchAtLogin(false);
        QVERIFY(platform.policy == ActivationPolicy::Accessory);
        QCOMPARE(platform.registeredAtLogin, false);
    }

    void hotKeysAreRepairedEachInItsOwnWay_data()
    {
        const auto text = [](const char16_t *glyphs) { return QString::fromUtf16(glyphs); };
        QTest::addColumn<QByteArray>("stored"); // null: nothing
        QTest::addColumn<QStringList>("shown"); // stash, restore, save layout, undo
        QTest::newRow("a fresh user")
            << QByteArray() << QStringList{text(u"⌥⇧S"), text(u"⇧⌘R"), text(u"⇧⌘S"), text(u"")};
        QTest::newRow("garbage") << QByteArray("{\"keyCode\":")
                                 << QStringList{text(u"⌥⇧S"), text(u""), text(u""), text(u"")};
        QTest::newRow("a choice") << QByteArray("{\"keyCode\":49,\"modifiers\":4096}")
                                  << QStringList(4, text(u"⌃Space"));
    }

    void hotKeysAreRepairedEachInItsOwnWay()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QStringList, shown);
        const QStringList keys{QStringLiteral("stashHotKey"), QStringLiteral("restoreHotKey"),
                               QStringLiteral("saveLayoutHotKey"), QStringLiteral("undoHotKey")};
        InMemoryPlatform platform;
        if (!stored.isNull()) {
            for (const QString &key : keys)
                platform.defaults.setData(key, stored);
        }
        const Prefs prefs(platform.defaults, platform.activationPolicy(), platform.loginItem());
        const std::array combos{prefs.stashHotKey(), prefs.restoreHotKey(),
                                prefs.saveLayoutHotKey(), prefs.undoHotKey()};
        for (std::size_t i = 0; i < combos.size(); ++i) {
            const QString key = keys[qsizetype(i)];
            QCOMPARE(combos[i] ? combos[i]->displayString() : QString(), shown[qsizetype(i)]);
            QCOMPARE(platform.defaults.contains(key), combos[i].has_value()); // saved back
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
