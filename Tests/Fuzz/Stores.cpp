#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Records/ModelCoding.h"
#include "PanorelCore/State/StateExport.h"
#include "PanorelCore/Triggers/TriggerMath.h"

#include "Fuzz/Fuzz.h"
#include "Support/TestDataDir.h"

#include <QTimeZone>

#include <map>

using namespace Panorel;
using Fuzz::require;

namespace {

void use(TestDataDir &dir, const std::vector<TriggerRecord> &triggers)
{
    const Instant now = dir.clock.now();
    for (const TriggerRecord &trigger : triggers) {
        const TimeTrigger *time = trigger.kind.time();
        if (!time || !time->canFire())
            continue;
        const Instant next = TriggerMath::nextFire(now, int(time->hour), int(time->minute),
                                                   time->weekdays, QTimeZone("Europe/Berlin"));
        require(next > now && next < now + std::chrono::days(9),
                "it fires within a week and a day");
    }
}

/// Of the others nothing is promised beyond what holds for every file.
template <typename Value> void use(TestDataDir &, const Value &) {}

template <typename Value>
void checkFile(TestDataDir &dir, const QByteArray &bytes, const QByteArray &name)
{
    const QString path = dir.path(QString::fromLatin1(name));
    const QString aside = path + QStringLiteral(".corrupt-1715592000");
    const auto store = [&] { return JSONStore<Value>(path, dir.log, dir.clock); };
    const auto save = [&](const Value &value) {
        store().save(value);
        require(dir.read(path) == PanorelJSON::encoder().encode(value),
                "what is in memory can be saved");
    };
    dir.write(path, bytes);
    const auto value = store().load();
    save(value.value_or(Value{}));
    if (!value)
        return require(dir.read(aside) == bytes, "what was refused is kept aside");
    require(store().load() == value, "what was accepted comes back as it was");
    use(dir, *value);
}

void checkExport(TestDataDir &, const QByteArray &bytes, const QByteArray &)
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

/// The first line names the file.
void check(const QByteArray &input)
{
    static const std::map<QByteArray,
                          void (*)(TestDataDir &, const QByteArray &, const QByteArray &)>
        kinds{{"layouts.json", checkFile<LayoutFile>},
              {"scenes.json", checkFile<SceneFile>},
              {"rules.json", checkFile<std::vector<AppRule>>},
              {"placements.json", checkFile<std::vector<AppPlacement>>},
              {"usage.json", checkFile<UsageData>},
              {"triggers.json", checkFile<std::vector<TriggerRecord>>},
              {"export", checkExport}};
    Fuzz::Input parts(input);
    const QByteArray name = parts.line();
    const auto kind = kinds.find(name);
    TestDataDir dir;
    if (kind != kinds.end())
        kind->second(dir, parts.rest(), name);
}

const Fuzz::Target target("Stores", check);

} // namespace
