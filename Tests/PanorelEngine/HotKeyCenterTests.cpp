#include "PanorelEngine/HotKeys/HotKeyCenter.h"

#include "Support/InMemoryPlatform.h"

#include <QTest>

using namespace Panorel;

namespace {

const HotKeyCombo altShiftS{1, HotKeyCombo::option | HotKeyCombo::shift};
const HotKeyCombo controlA{0, HotKeyCombo::control};

struct Center {
    InMemoryHotKeys port;
    HotKeyCenter keys{port};
    QStringList called;

    bool take(const QString &id, const HotKeyCombo &combo, const QString &name)
    {
        return keys.registerHotKey(id, name, combo, [this, id] { called.append(id); });
    }
    bool take(const QString &id, const HotKeyCombo &combo) { return take(id, combo, id.toUpper()); }
};

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString sceneOne = QStringLiteral("scene:1");
const QString sceneTwo = QStringLiteral("scene:2");

} // namespace

class HotKeyCenterTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPressReachesItsActionOnly()
    {
        Center center;
        QVERIFY(center.take(a, altShiftS));
        QVERIFY(center.take(b, controlA));
        center.port.press(controlA);
        QCOMPARE(center.called, QStringList{b});
    }

    void registeringAgainReplacesAndUsesANewNumber()
    {
        Center center;
        center.take(a, altShiftS);
        center.take(a, controlA);
        QCOMPARE(center.port.registered, (std::map<HotKeyNumber, HotKeyCombo>{{2, controlA}}));
        center.port.deliver(1); // a press that was under way
        QVERIFY(center.called.isEmpty());
    }

    void aRefusedCombinationLeavesTheActionWithoutAny()
    {
        Center center;
        center.take(a, altShiftS);
        center.port.refused = {controlA};
        QVERIFY(!center.take(a, controlA));
        QVERIFY(center.port.registered.empty());
        QVERIFY(center.keys.collisions(altShiftS).isEmpty());
        center.take(b, altShiftS);
        QVERIFY(center.port.registered.contains(2)); // the refusal used up no number
    }

    void collisionsNameTheOthers()
    {
        Center center;
        center.take(a, altShiftS);
        center.take(b, altShiftS);
        center.take(sceneOne, altShiftS, QString());
        center.take(sceneTwo, controlA);
        QCOMPARE(center.keys.collisions(altShiftS, a), QStringList{QStringLiteral("B")});
        QCOMPARE(center.keys.collisions(altShiftS).size(), 2);
        QVERIFY(center.keys.collisions({9, 0}).isEmpty());
    }

    void aPrefixDropsItsActions()
    {
        Center center;
        center.take(a, altShiftS);
        center.take(sceneOne, controlA);
        center.take(sceneTwo, controlA);
        center.keys.unregisterAll(QStringLiteral("scene:"));
        QCOMPARE(center.port.registered.size(), 1u);
        center.keys.unregister(a);
        center.keys.unregister(a);
        center.port.press(altShiftS);
        QVERIFY(center.called.isEmpty());
    }

    void anActionMayRegisterItselfAnew()
    {
        Center center;
        const auto again = [&] { center.take(a, controlA); };
        center.keys.registerHotKey(a, QStringLiteral("A"), altShiftS, again);
        center.port.press(altShiftS);
        center.port.press(controlA);
        QCOMPARE(center.called, QStringList{a});
    }

    void combinationsAreShownAsTheKeyboardNamesThem_data()
    {
        constexpr quint32 all =
            HotKeyCombo::command | HotKeyCombo::shift | HotKeyCombo::option | HotKeyCombo::control;
        QTest::addColumn<quint32>("keyCode");
        QTest::addColumn<quint32>("modifiers");
        QTest::addColumn<QString>("mac");
        QTest::addColumn<QString>("pc");
        const auto row = [](const char *name, quint32 code, quint32 modifiers, const char16_t *mac,
                            const char16_t *pc) {
            QTest::newRow(name) << code << modifiers << QString::fromUtf16(mac)
                                << QString::fromUtf16(pc);
        };
        row("the stash key", 1, 2560, u"⌥⇧S", u"Alt+Shift+S");
        row("all four", 0, all, u"⌃⌥⇧⌘A", u"Ctrl+Alt+Shift+Super+A");
        row("no modifier", 49, 0, u"Space", u"Space");
        row("a key with a glyph", 51, 256, u"⌘⌫", u"Super+Backspace");
        row("a key without a name", 122, 4096, u"⌃?", u"Ctrl+?");
        row("codes between the named", 10, 0, u"?", u"?");
        row("six comes before five", 22, 0, u"6", u"6");
        row("unknown modifiers", 50, 0x10000, u"`", u"`");
    }

    void combinationsAreShownAsTheKeyboardNamesThem()
    {
        QFETCH(quint32, keyCode);
        QFETCH(quint32, modifiers);
        QTEST(HotKeyCombo({keyCode, modifiers}).displayString(), "mac");
        QTEST(HotKeyCombo({keyCode, modifiers}).pcString(), "pc");
    }
};

QTEST_GUILESS_MAIN(HotKeyCenterTests)
#include "HotKeyCenterTests.moc"
