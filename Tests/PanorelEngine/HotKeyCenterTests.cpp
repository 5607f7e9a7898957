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
    QMap<QString, QString> names{{QStringLiteral("a"), QStringLiteral("A")},
                                 {QStringLiteral("b"), QStringLiteral("B")}};
    QStringList called;

    bool take(const QString &id, const HotKeyCombo &combo)
    {
        return keys.registerHotKey(id, names.value(id), combo, [this, id] { called.append(id); });
    }
};

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString sceneOne = QStringLiteral("scene:1");
const QString sceneTwo = QStringLiteral("scene:2");

} // namespace

class HotKeyCenterTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void registeringAgainReplacesAndUsesANewNumber()
    {
        Center center;
        QVERIFY(center.take(a, altShiftS));
        QVERIFY(center.take(a, controlA));
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
        center.take(sceneOne, altShiftS); // has no name
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

    void combinationsAreShownAsTheKeyboardNamesThem()
    {
        constexpr quint32 all =
            HotKeyCombo::command | HotKeyCombo::shift | HotKeyCombo::option | HotKeyCombo::control;
        const std::tuple<HotKeyCombo, QString, QString> rows[] = {
            {{1, 2560}, QStringLiteral("⌥⇧S"), QStringLiteral("Alt+Shift+S")},
            {{0, all}, QStringLiteral("⌃⌥⇧⌘A"), QStringLiteral("Ctrl+Alt+Shift+Super+A")},
            {{51, 256}, QStringLiteral("⌘⌫"), QStringLiteral("Super+Backspace")},
            {{122, 4096}, QStringLiteral("⌃?"), QStringLiteral("Ctrl+F1")}, // no Mac glyph
            {{10, 0}, QStringLiteral("?"), QStringLiteral("?")},            // between the named
            {{22, 0}, QStringLiteral("6"), QStringLiteral("6")},            // before 5
        };
        for (const auto &[combo, mac, pc] : rows) {
            QCOMPARE(combo.displayString(), mac);
            QCOMPARE(combo.pcString(), pc);
        }
    }
};

QTEST_GUILESS_MAIN(HotKeyCenterTests)
#include "HotKeyCenterTests.moc"
