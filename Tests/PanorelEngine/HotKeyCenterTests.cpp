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

    bool take(const QString &id, const HotKeyCombo &combo)
    {
        return keys.registerHotKey(id, id, combo, [this, id] { called.append(id); });
    }
};

const QString a = QStringLiteral("a");
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
};

QTEST_GUILESS_MAIN(HotKeyCenterTests)
#include "HotKeyCenterTests.moc"
