#include "PanorelCore/State/StateExport.h"
#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelCore/Triggers/TriggerMath.h"
#include "PanorelCore/Triggers/TriggerStore.h"

#include "Fuzz/Fuzz.h"
#include "Support/TestDataDir.h"

#include <QFile>
#include <QTimeZone>

using namespace Panorel;
using Fuzz::require;

namespace {

template <typename Value> class StoredFile {
public:
    StoredFile(TestDataDir &dir, const QString &name) : m_dir(dir), m_name(name) {}

    /// What the bytes mean, after the promises about the file were checked; nothing if refused.
    std::optional<Value> check(const QByteArray &bytes)
    {
        m_dir.write(m_name, bytes);
        const auto value = store().load();
        if (!value) {
            const QString aside = m_name + QStringLiteral(".corrupt-1715592000");
            require(!QFile::exists(m_dir.path(m_name)) && m_dir.read(aside) == bytes,
                    "what was refused is kept aside");
            save(Value{});
            require(m_dir.read(aside) == bytes, "what was refused stays there");
            return {};
        }
        save(*value);
        require(store().load() == value, "what was accepted comes back as it was");
        return value;
    }

private:
    JSONStore<Value> store() { return {m_dir.path(m_name), m_dir.log, m_dir.clock}; }
    void save(const Value &value)
    {
        store().save(value);
        require(m_dir.read(m_name) == PanorelJSON::encoder().encode(value),
                "what is in memory can be saved");
    }

    TestDataDir &m_dir;
    QString m_name;
};

void use(TestDataDir &dir, const LayoutFile &)
{
    LayoutStore store(dir.log, dir.clock);
    while (!store.allLayouts().empty()) {
        const Layout layout = store.allLayouts().front();
        store.saveLearned(layout);
        require(*store.layoutFor(layout.configID) == layout, "a layout is learned as it is");
        store.forgetDesk(layout.configID);
        require(!store.layoutFor(layout.configID), "a forgotten desk is forgotten");
    }
}

void use(TestDataDir &dir, const SceneFile &file)
{
    SceneStore store(dir.log, dir.clock);
    for (const auto &[configID, text] : file.lastAppliedByConfig)
        store.lastApplied(configID);
    while (!store.allScenes().empty()) {
        const SceneRecord scene = store.allScenes().front();
        if (scene.hotKey)
            require((scene.hotKey->displayString() + scene.hotKey->pcString()).isValidUtf16(),
                    "a key can be shown");
        store.markApplied(scene.id, scene.configID);
        require(store.lastApplied(scene.configID) == scene.id, "the last scene is known");
        store.remove(scene.id);
        require(!store.scene(scene.id) && !store.lastApplied(scene.configID),
                "a removed scene is gone");
    }
}

void use(TestDataDir &dir, const std::vector<AppRule> &)
{
    AppRuleStore store(dir.log, dir.clock);
    const auto rules = store.allRules();
    for (const AppRule &rule : rules)
        store.set(store.rule(rule.bundleID));
    require(store.allRules() == rules, "a rule that is set to itself changes nothing");
}

void use(TestDataDir &dir, const std::vector<AppPlacement> &placements)
{
    PlacementMemory memory(dir.log, dir.clock);
    for (const AppPlacement &placement : placements) {
        memory.forgetDesk(placement.configID);
        require(memory.windows(placement.configID, placement.bundleID).empty(),
                "a forgotten desk is forgotten");
    }
}

void use(TestDataDir &dir, const UsageData &data)
{
    UsageStore store(dir.log, dir.clock);
    store.record(UsageEvents::Desk{QStringLiteral("new")});
    require(store.data().firstRecordedAt == data.firstRecordedAt, "counting goes on");
}

void use(TestDataDir &dir, const std::vector<TriggerRecord> &triggers)
{
    const Instant now = dir.clock.now();
    for (const TriggerRecord &trigger : triggers) {
        require(trigger.kind.description().isValidUtf16(), "a trigger can be shown");
        const TimeTrigger *time = trigger.kind.time();
        if (!time || !time->canFire())
            continue;
        const Instant next = TriggerMath::nextFire(now, int(time->hour), int(time->minute),
                                                   time->weekdays, QTimeZone("Europe/Berlin"));
        require(next > now && next < now + std::chrono::days(9),
                "it fires within a week and a day");
    }
    TriggerStore store(dir.log, dir.clock);
    while (!store.all().empty())
        store.remove(store.all().front().id);
}

template <typename Value>
void checkFile(TestDataDir &dir, const QByteArray &bytes, const char *name)
{
    if (const auto value = StoredFile<Value>(dir, QString::fromLatin1(name)).check(bytes))
        use(dir, *value);
}

void checkExport(TestDataDir &, const QByteArray &bytes, const char *)
{
    std::optional<SavedState> state;
    try {
        state = StateExport::decode(bytes);
    } catch (const StateExport::Failure &failure) {
        require(failure.reason().isValidUtf16(), "why it is refused can be shown");
        return;
    }
    require(StateExport::decode(StateExport::encode(*state)) == *state,
            "what was imported can be exported");
}

struct Kind {
    const char *name;
    void (*check)(TestDataDir &dir, const QByteArray &bytes, const char *name);
};
constexpr Kind kinds[] = {
    {"layouts.json", checkFile<LayoutFile>},
    {"scenes.json", checkFile<SceneFile>},
    {"rules.json", checkFile<std::vector<AppRule>>},
    {"placements.json", checkFile<std::vector<AppPlacement>>},
    {"usage.json", checkFile<UsageData>},
    {"triggers.json", checkFile<std::vector<TriggerRecord>>},
    {"export", checkExport},
};

/// The first line names the file.
void check(const QByteArray &input)
{
    Fuzz::Input parts(input);
    const QByteArray name = parts.line();
    for (const Kind &kind : kinds) {
        if (name != kind.name)
            continue;
        TestDataDir dir;
        kind.check(dir, parts.rest(), kind.name);
    }
}

const Fuzz::Target target("Stores", check);

} // namespace
