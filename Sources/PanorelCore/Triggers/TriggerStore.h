#pragma once

#include "PanorelCore/Files/JSONStore.h"
#include "PanorelCore/Triggers/TriggerCoding.h"

namespace Panorel {

/// The user's triggers, in triggers.json, in the order added. Every change saves the whole file;
/// whoever plans by the triggers has to be told of it.
class TriggerStore {
public:
    TriggerStore(AppLog &log, const Clock &clock);

    const std::vector<TriggerRecord> &all() const { return m_triggers; }

    /// Appends without looking for the same id.
    void add(const TriggerRecord &trigger);

    /// Replaces the first trigger of that id in its place; an unknown id changes nothing.
    void update(const TriggerRecord &trigger);

    /// Removes every trigger of that id.
    void remove(const QUuid &id);

    /// Takes all of it in place of what is there, and saves. False where the file can't be
    /// written; then it holds only as long as the program runs.
    bool replaceAll(std::vector<TriggerRecord> contents);

private:
    JSONStore<std::vector<TriggerRecord>> m_store;
    std::vector<TriggerRecord> m_triggers;
};

} // namespace Panorel
