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
        QVERIFY(platform.defaults.values.empty());

        QSignalSpy changed(&prefs, &Prefs::changed);
        (prefs.*which.set)(!byDefault);
        (prefs.*which.set)(!byDefault);
        QCOMPARE(changed.count(), 2); // every assignment notifies
        QCOMPARE(platform.defaults.boolean(key), !byDefault);
        QCOMPARE(platform.defaults.values.size(), 1u);

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
};

QTEST_GUILESS_MAIN(PrefsTests)
#include "PrefsTests.moc"
