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
        const auto facts = [](const DisplayIdentity &identity) {
            return std::tuple(identity.uuid, identity.vendorNumber, identity.modelNumber,
                              identity.serialNumber, identity.isBuiltin);
        };
        for (const auto &[screen, identity] : displays.displays)
            QVERIFY(facts(Mac::displayIdentity(*screen.displayNumber)) == facts(identity));
        QVERIFY(facts(Mac::displayIdentity(4711)) == facts({}));
    }

    void aReconfigurationIsToldOnTheMainThreadWhileItsCallbackLives()
    {
        auto &displays = desktop().platform.display;
        int told = 0;
        std::unique_ptr<Mac::ReconfigurationCallback> first;
        first = std::make_unique<Mac::ReconfigurationCallback>([&] {
            QCOMPARE(QThread::currentThread(), qApp->thread());
            told += 100;
            first.reset();
        });
        const Mac::ReconfigurationCallback second([&] { ++told; });
        displays.announceChange(); // two steps, both from another thread
        QCOMPARE(told, 0);
        QCoreApplication::processEvents();
        QCOMPARE(told, 102);
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

    void aStoredValueIsReadAsItsOwnTypeOnly()
    {
        const QString one = QStringLiteral("1");
        const double infinite = std::numeric_limits<double>::infinity();
        const std::tuple<QLatin1String, QVariant, PreferenceValue> rows[] = {
            {QLatin1String("boolean"), true, true},
            {QLatin1String("number"), 1.5, 1.5},
            {QLatin1String("nothing"), infinite, QString()},
            {QLatin1String("text"), one, one},
            {QLatin1String("data"), QByteArray("1"), QString()},
            {QLatin1String("nothing"), QVariantList{true}, QString()},
        };
        const QString key = QStringLiteral("key");
        const QString domain = QStringLiteral("org.example.spaces");
        const Mac::MacUserDefaults defaults;
        for (const auto &[readableAs, stored, asPreference] : rows) {
            desktop().platform.defaults.values[key] = stored;
            QVERIFY(defaults.contains(key));
            QCOMPARE(defaults.boolean(key).has_value(), readableAs == u"boolean");
            QCOMPARE(defaults.number(key).has_value(), readableAs == u"number");
            QCOMPARE(defaults.text(key).has_value(), readableAs == u"text");
            QCOMPARE(defaults.data(key).has_value(), readableAs == u"data");
            desktop().preferences[domain + u' ' + key] = stored;
            QVERIFY(Mac::preferenceValue(domain, key) == asPreference);
        }
        QVERIFY(!Mac::preferenceValue(domain, QStringLiteral("other")));
    }

    void anAlarmComesOnceAndNeverEarly()
    {
        using namespace std::chrono_literals;
        const Instant earliest(1s); // before the epoch there is no time
        for (const Instant when : {Instant(1'000'000s + 30ms), Instant(-1500ms), Instant::min()}) {
            int runs = 0;
            const auto task = Mac::MacAlarm().runAt(when, [&] { ++runs; });
            runMainQueueUntil(std::max(when, earliest) - 1ms);
            QCOMPARE(runs, 0);
            runMainQueueUntil(std::max(when, earliest));
            runMainQueueUntil(Instant(2'000'000s));
            QCOMPARE(runs, 1);
        }
    }

    void aDestroyedOrDistantAlarmDoesNotComeAndOneMayEndItselfInItsAction()
    {
        using namespace std::chrono_literals;
        const Instant now(1'000'000s);
        int unwanted = 0;
        auto destroyed = Mac::MacAlarm().runAt(now, [&] { ++unwanted; });
        const auto distant = Mac::MacAlarm().runAt(Instant::max(), [&] { ++unwanted; });
        destroyed.reset();
        std::unique_ptr<ScheduledTask> task;
        bool ended = false;
        task = Mac::MacAlarm().runAt(now, [&, kept = std::make_shared<int>(7)] {
            task.reset();
            ended = *kept == 7; // what the action holds outlives the task
        });
        runMainQueueUntil(now);
        QVERIFY(ended && unwanted == 0);
    }
};

} // namespace Panorel::MacDoubles
