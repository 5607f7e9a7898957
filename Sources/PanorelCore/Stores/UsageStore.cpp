#include "PanorelCore/Stores/UsageStore.h"

#include "PanorelCore/Files/Paths.h"

#include <algorithm>

namespace Panorel {

namespace {

void addChecked(qint64 &total, qint64 amount)
{
    if (__builtin_add_overflow(total, amount, &total))
        qFatal("panorel: a usage counter overflowed");
}

UsageData freshData(const Clock &clock)
{
    UsageData data;
    data.firstRecordedAt = clock.now();
    return data;
}

} // namespace

UsageStore::UsageStore(AppLog &log, const Clock &clock)
    : m_store(Paths::file(QStringLiteral("usage.json")), log, clock)
{
    auto stored = m_store.load();
    m_data = stored ? *std::move(stored) : freshData(clock);
}

void UsageStore::record(const UsageEvent &event)
{
    if (std::visit([this](const auto &happened) { return count(happened); }, event))
        m_store.save(m_data);
}

bool UsageStore::count(const UsageEvents::Restore &restore)
{
    addChecked(m_data.restores, 1);
    addChecked(m_data.windowsPutBack, restore.windows);
    return true;
}

bool UsageStore::count(const UsageEvents::Desk &desk)
{
    if (std::ranges::find(m_data.deskIDs, desk.configID) != m_data.deskIDs.end())
        return false;
    m_data.deskIDs.push_back(desk.configID);
    return true;
}

bool UsageStore::count(const UsageEvents::SceneSwitch &)
{
    addChecked(m_data.sceneSwitches, 1);
    return true;
}

bool UsageStore::count(const UsageEvents::Stash &)
{
    addChecked(m_data.stashUses, 1);
    return true;
}

bool UsageStore::count(const UsageEvents::Undo &)
{
    addChecked(m_data.undoUses, 1);
    return true;
}

bool UsageStore::replaceAll(UsageData contents)
{
    m_data = std::move(contents);
    return m_store.save(m_data);
}

} // namespace Panorel
