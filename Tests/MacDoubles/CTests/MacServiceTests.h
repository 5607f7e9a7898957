#pragma once

#include "MacDoubles/MacTests.h"
#include "PanorelMac/Displays/DisplayIdentities.h"
#include "PanorelMac/Displays/ReconfigurationCallback.h"
#include "PanorelMac/HotKeys/MacHotKeys.h"
#include "PanorelMac/Session/MacAlarm.h"
#include "PanorelMac/Settings/MacUserDefaults.h"
#include "PanorelMac/Settings/Preferences.h"

namespace Panorel::MacDoubles {

/// Displays, hot keys, preferences and alarms, beyond what the contracts ask of every platform.
class MacServiceTests : public MacTests {
    Q_OBJECT

private Q_SLOTS:
    void aDisplayIsToldByItsNumbersAndNothingIsKnownOfOneThatLeft()
    {
        auto &displays = desktop().platform.display;
        displays.plug(QStringLiteral("Main"), {0, 0, 1920, 1080}, 7);
        displays.plug(QStringLiteral("Second"), {1920, 0, 1280, 1024}, 0);
        displays.displays[1].identity.uuid.reset();
        const DisplayIdentity main = Mac::displayIdentity(1);
        QCOMPARE(main.uuid, QStringLiteral("Main-uuid"));
        QVERIFY(main.vendorNumber == 0x610 && main.modelNumber == 0xA050);
        QVERIFY(main.serialNumber == 7 && main.isBuiltin);
        QVERIFY(!Mac::displayIdentity(2).uuid && !Mac::displayIdentity(2).isBuiltin);
        const DisplayIdentity gone = Mac::displayIdentity(4711);
        QVERIFY(!gone.uuid && !gone.vendorNumber && !gone.modelNumber && !gone.serialNumber);
    }

    void aReconfigurationIsToldOnTheMainThreadWhileItsCallbackLives()
    {
        auto &displays = desktop().platform.display;
        int told = 0;
        bool onMainThread = true;
        std::unique_ptr<Mac::ReconfigurationCallback> first;
        first = std::make_unique<Mac::ReconfigurationCallback>([&] {
            told += 100;
            onMainThread &= isMainThread();
            first.reset();
        });
        const Mac::ReconfigurationCallback second([&] { ++told; });
        displays.announceChange(); // two steps, both from another thread
        QCOMPARE(told, 0);
        QCoreApplication::processEvents();
        QCOMPARE(told, 102);
        QVERIFY(onMainThread);
        auto late = std::make_unique<Mac::ReconfigurationCallback>([&] { told = -1; });
        displays.announceChange();
        late.reset(); // while its events are under way
        QCoreApplication::processEvents();
        QCOMPARE(told, 104);
    }

    void aPressUnderWayMayComeTooLate()
    {
        auto &keys = desktop().platform.keys;
        constexpr HotKeyCombo combo{1, HotKeyCombo::shift | HotKeyCombo::command};
        QList<HotKeyNumber> told;
        {
            Mac::MacHotKeys port;
            port.setPressedCallback([&](HotKeyNumber number) { told << number; });
            auto held = port.registerHotKey(combo, 2);
            keys.press(combo);
            QVERIFY(told.empty()); // not from within the event
            QCoreApplication::processEvents();
            QCOMPARE(told, QList<HotKeyNumber>{2});
            keys.deliver(99); // an event that names no hot key
            keys.press(combo);
            held.reset();
            QCoreApplication::processEvents();
            held = port.registerHotKey(combo, 3);
            keys.press(combo);
        }
        QCoreApplication::processEvents();
        QCOMPARE(told, QList<HotKeyNumber>{2});
    }

    void aKeyIsKnownByItsVirtualKeyAndShownInSymbols()
    {
        const Mac::MacHotKeys port;
        QCOMPARE(port.keyCodeOf(9, 0), 0u);
        QCOMPARE(port.keyCodeOf(0, 0x7f), 0x7fu);
        QVERIFY(!port.keyCodeOf(9, 0x80));
        QCOMPARE(port.text({1, HotKeyCombo::option | HotKeyCombo::shift}), QStringLiteral("⌥⇧S"));
    }

    void aStoredValueIsReadAsItsOwnTypeOnly()
    {
        const QString one = QStringLiteral("1");
        const double infinite = std::numeric_limits<double>::infinity();
        const std::tuple<QLatin1String, QVariant, PreferenceValue> rows[] = {
            {QLatin1String("boolean"), true, true},
            {QLatin1String("number"), 1.5, 1.5},
            {QLatin1String("number"), 1, 1.0},
            {QLatin1String("nothing"), infinite, QString()},
            {QLatin1String("text"), one, one},
            {QLatin1String("data"), QByteArray("1"), QString()},
            {QLatin1String("nothing"), QVariantList{true}, QString()},
        };
        const QString key = QStringLiteral("key");
        const Mac::MacUserDefaults defaults;
        for (const auto &[readableAs, stored, asPreference] : rows) {
            desktop().platform.defaults.values[key] = stored;
            QVERIFY(defaults.contains(key));
            QCOMPARE(defaults.boolean(key).has_value(), readableAs == u"boolean");
            QCOMPARE(defaults.number(key).has_value(), readableAs == u"number");
            QCOMPARE(defaults.text(key).has_value(), readableAs == u"text");
            QCOMPARE(defaults.data(key).has_value(), readableAs == u"data");
            const auto own = QStringLiteral("org.panorel.Panorel");
            QVERIFY(Mac::preferenceValue(own, key) == asPreference);
        }
    }

    void anotherProgramsPreferenceIsReadFromItsDomain()
    {
        const QString domain = QStringLiteral("org.example.spaces");
        desktop().platform.preferences[domain + QStringLiteral(" spans")] = true;
        QVERIFY(Mac::preferenceValue(domain, QStringLiteral("spans")) == PreferenceValue(true));
        QVERIFY(!Mac::preferenceValue(domain, QStringLiteral("other")));
    }

    void anAlarmComesOnceAndNeverEarly()
    {
        using namespace std::chrono_literals;
        const Instant earliest(1s); // before the epoch there is no time
        for (const Instant when :
             {Instant(1'000'000s + 30ms), earliest, Instant(), Instant(-1500ms), Instant::min()}) {
            int runs = 0;
            const auto task = Mac::MacAlarm().runAt(when, [&] { ++runs; });
            runMainQueueUntil(std::max(when, earliest) - 1ms);
            QCOMPARE(runs, 0);
            runMainQueueUntil(std::max(when, earliest));
            QCOMPARE(runs, 1);
            runMainQueueUntil(Instant(2'000'000s));
            QCOMPARE(runs, 1);
        }
    }

    void aDestroyedOrDistantAlarmDoesNotComeAndOneMayReplaceItselfInItsAction()
    {
        using namespace std::chrono_literals;
        const Instant now(1'000'000s);
        Mac::MacAlarm alarm;
        int unwanted = 0;
        auto destroyed = alarm.runAt(now, [&] { ++unwanted; });
        const auto distant = alarm.runAt(Instant::max(), [&] { ++unwanted; });
        destroyed.reset();
        std::unique_ptr<ScheduledTask> task;
        bool ended = false;
        bool cameAgain = false;
        task = alarm.runAt(now, [&, kept = std::make_shared<int>(7)] {
            task.reset();
            ended = *kept == 7; // what the action holds outlives the task
            task = alarm.runAt(now + 1s, [&] { cameAgain = true; });
        });
        runMainQueueUntil(now);
        QVERIFY(ended && !cameAgain);
        runMainQueueUntil(now + 1s);
        QVERIFY(cameAgain);
        QCOMPARE(unwanted, 0);
    }
};

} // namespace Panorel::MacDoubles
