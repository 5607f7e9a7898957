#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "Support/TestDataDir.h"

#include <QFile>
#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString home = QStringLiteral("home");
const QString office = QStringLiteral("office");
const QString layoutsFile = QStringLiteral("layouts.json");
const QString scenesFile = QStringLiteral("scenes.json");
const QString placementsFile = QStringLiteral("placements.json");

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
    void aDeskKeepsItsPlaceAndNameWhenLearnedAgain()
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
        QCOMPARE(dir.logged().last(),
                 QStringLiteral("learned layout: 7 windows for  Home office  [Evening]"));
    }

    void forgettingADeskLeavesTheOthers()
    {
        TestDataDir dir;
        LayoutFile file;
        file.activeLayouts = {{home, QStringLiteral("Default")},
                              {QStringLiteral("old"), QString()}};
        file.layouts = {layout(home, home, 1), layout(office, office, 2), layout(home, home, 3)};
        dir.write(layoutsFile, PanorelJSON::encoder().encode(file));
        LayoutStore store(dir.log, dir.clock);
        store.renameDesk(home, QStringLiteral("C")); // of the desk that is there twice, the first
        QCOMPARE(texts(store.allLayouts(), &Layout::name),
                 (QStringList{QStringLiteral("C"), office, home}));
        store.forgetDesk(home);
        std::erase_if(file.layouts, [](const Layout &entry) { return entry.configID == home; });
        QVERIFY(PanorelJSON::decoder().decode<LayoutFile>(dir.read(layoutsFile)) == file);
    }

    void aRuleIsAlwaysThereAndSetOnce()
    {
        TestDataDir dir;
        AppRuleStore store(dir.log, dir.clock);
        const auto mail = QStringLiteral("mail");
        QVERIFY(store.rule(mail) == (AppRule{mail, false, false}));
        QVERIFY(store.allRules().empty() && dir.names().isEmpty());
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
        dir.write(
            scenesFile,
            dir.read(scenesFile).replace("\"third\"", "\"garbage\": \"yesterday\", \"third\""));
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

        QVERIFY(QFile::remove(dir.path(placementsFile)));
        memory.remember(home, {window(mail, 5)}); // no news
        QCOMPARE(dir.names(), QStringList());
        memory.forgetDesk(home);
        const PlacementMemory after(dir.log, dir.clock);
        QVERIFY(after.windows(home, mail).empty() && after.windows(office, clock).size() == 1);
    }

    void usageCountsWhatHappens()
    {
        TestDataDir dir;
        UsageStore store(dir.log, dir.clock);
        const Instant began = dir.clock.now();
        dir.clock.advance(1h);
        store.record(UsageEvents::Restore{5});
        store.record(UsageEvents::Desk{office});
        store.record(UsageEvents::Desk{home});
        store.record(UsageEvents::SceneSwitch{});
        store.record(UsageEvents::Stash{});
        store.record(UsageEvents::Undo{});
        const UsageData expected{{office, home}, began, 1, 1, 1, 1, 5};
        QVERIFY(store.data() == expected);
        QVERIFY(UsageStore(dir.log, dir.clock).data() == expected);
    }
};

QTEST_GUILESS_MAIN(StoresTests)
#include "StoresTests.moc"
