#include "PanorelCore/Triggers/TriggerStore.h"

#include "PanorelCore/Files/Paths.h"

#include <algorithm>

namespace Panorel {

TriggerStore::TriggerStore(AppLog &log, const Clock &clock)
    : m_store(Paths::file(QStringLiteral("triggers.json")), log, clock),
      m_triggers(m_store.load().value_or(std::vector<TriggerRecord>{}))
{}

void TriggerStore::add(const TriggerRecord &trigger)
{
    m_triggers.push_back(trigger);
    m_store.save(m_triggers);
}

void TriggerStore::update(const TriggerRecord &trigger)
{
    const auto found = std::ranges::find(m_triggers, trigger.id, &TriggerRecord::id);
    if (found == m_triggers.end())
        return;
    *found = trigger;
    m_store.save(m_triggers);
}

void TriggerStore::remove(const QUuid &id)
{
    // A copy: the id may be that of a record in the list.
    std::erase_if(m_triggers, [gone = id](const TriggerRecord &each) { return each.id == gone; });
    m_store.save(m_triggers);
}

bool TriggerStore::replaceAll(std::vector<TriggerRecord> contents)
{
    m_triggers = std::move(contents);
    return m_store.save(m_triggers);
}

} // namespace Panorel
