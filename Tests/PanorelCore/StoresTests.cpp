#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "Support/TestDataDir.h"

#include <QTest>

using namespace Panorel;

namespace {

const QString home = QStringLiteral("home");
const QString office = QStringLiteral("office");

Layout layout(const QString &configID, const QString &name, int windows)
{
    Layout result;
    result.configID = configID;
    result.name = name;
    result.layoutName = QStringLiteral("Default");
    result.savedAt = Instant(std::chrono::seconds(windows));
    result.windows.resize(size_t(windows));
    return result;
}

SceneRecord scene(const QUuid &id, const QString &configID, const QString &name)
{
    return {id, configID, name, {}, false, false, {}, {}, {}};
}

template <typename Element, typename Member>
QStringList texts(const std::vector<Element> &elements, Member member)
{
    QStringList result;
    for (const Element &element : elements)
        result.append(element.*member);
    return result;
}

const QUuid first(QStringLiteral("{0a0b0c0d-0000-4000-8000-00000000000f}"));
const QUuid second(QStringLiteral("{00000000-0000-0000-0000-000000000000}"));

} // namespace

class StoresTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDeskKeepsItsPlaceAndNameUntilItIsForgotten()
    {
        TestDataDir dir;
        LayoutStore store(dir.log, dir.clock);
        store.renameDesk(home, QStringLiteral("Nowhere"));
        QCOMPARE(dir.names(), QStringList()); // the empty value is not written

        store.saveLearned(layout(home, QStringLiteral("Desk setup"), 2));
        store.saveLearned(layout(office, QStringLiteral("Desk setup"), 0));
        store.renameDesk(home, QStringLiteral(" Home office "));
        Layout again = layout(home, QStringLiteral("Whatever"), 7);
        again.layoutName = QStringLiteral("Evening");
        store.saveLearned(again);

        again.name = QStringLiteral(" Home office ");
        const LayoutStore reloaded(dir.log, dir.clock);
        QCOMPARE(texts(reloaded.allLayouts(), &Layout::configID), (QStringList{home, office}));
        QVERIFY(*reloaded.layoutFor(home) == again);
        store.forgetDesk(home);
        QCOMPARE(texts(LayoutStore(dir.log, dir.clock).allLayouts(), &Layout::configID), {office});
    }

    void aRuleIsSetOnce()
    {
        TestDataDir dir;
        AppRuleStore store(dir.log, dir.clock);
        const auto mail = QStringLiteral("mail");
        store.set({mail, true, false});
        store.set({mail, false, false}); // inert, and stays
        QVERIFY(AppRuleStore(dir.log, dir.clock).allRules()
                == (std::vector<AppRule>{{mail, false, false}}));
    }

    void scenesStandInTheOrderAdded()
    {
        TestDataDir dir;
        SceneStore store(dir.log, dir.clock);
        store.add(scene(first, home, QStringLiteral("1")));
        store.add(scene(second, office, QStringLiteral("2")));
        store.add(scene(first, home, QStringLiteral("3"))); // a copy by hand has the same id
        store.update(scene(first, home, QStringLiteral("1b")));

        const SceneStore reloaded(dir.log, dir.clock);
        QCOMPARE(texts(reloaded.allScenes(), &SceneRecord::name),
                 (QStringList{QStringLiteral("1b"), QStringLiteral("2"), QStringLiteral("3")}));
        QCOMPARE(texts(reloaded.scenesFor(home), &SceneRecord::name),
                 (QStringList{QStringLiteral("1b"), QStringLiteral("3")}));
        QCOMPARE(reloaded.scene(first)->name, QStringLiteral("1b"));
    }

    void removingASceneForgetsWhereItWasApplied()
    {
        TestDataDir dir;
        SceneStore store(dir.log, dir.clock);
        for (const QUuid &id : {first, second, first})
            store.add(scene(id, home, QString()));
        store.markApplied(second, home);
        store.markApplied(first, home);
        store.markApplied(first, office);
        store.markApplied(second, QStringLiteral("third"));
        store.remove(first);
        const auto file = QStringLiteral("scenes.json");
        dir.write(file,
                  dir.read(file).replace("\"third\"", "\"garbage\": \"yesterday\", \"third\""));
        const SceneStore reloaded(dir.log, dir.clock);
        QCOMPARE(reloaded.allScenes().size(), 1u);
        for (const QString &desk : {home, office, QStringLiteral("garbage")})
            QVERIFY(!reloaded.lastApplied(desk));
        QCOMPARE(reloaded.lastApplied(QStringLiteral("third")), second);
    }

    void placementsAreKeptForApplicationsThatAreNotRunning()
    {
        TestDataDir dir;
        PlacementMemory memory(dir.log, dir.clock);
        const auto mail = QStringLiteral("mail");
        const auto clock = QStringLiteral("clock");
        const auto window = [](const QString &bundleID, double x) {
            return WindowRecord{bundleID, bundleID, {}, {}, {x, 0, 50, 50}, qint64(x)};
        };
        memory.remember(home, {window(mail, 1), window(clock, 2), window(mail, 3)});
        memory.remember(office, {window(clock, 4)});
        memory.remember(home, {window(mail, 5)}); // one of two windows was closed, the clock quit

        const PlacementMemory reloaded(dir.log, dir.clock);
        QVERIFY(reloaded.windows(home, mail) == std::vector{window(mail, 5)});
        QVERIFY(reloaded.windows(home, clock) == std::vector{window(clock, 2)});
        QVERIFY(reloaded.windows(office, clock) == std::vector{window(clock, 4)});

        memory.forgetDesk(home);
        const PlacementMemory after(dir.log, dir.clock);
        QVERIFY(after.windows(home, mail).empty() && after.windows(office, clock).size() == 1);
    }
};

QTEST_GUILESS_MAIN(StoresTests)
#include "StoresTests.moc"
