#include "PanorelCore/Stores/SceneStore.h"

#include "PanorelCore/Files/Paths.h"

#include <algorithm>

namespace Panorel {

namespace {

QString canonical(const QUuid &id)
{
    return ValueCoding::write(id).toString();
}

} // namespace

SceneStore::SceneStore(AppLog &log, const Clock &clock)
    : m_store(Paths::file(QStringLiteral("scenes.json")), log, clock),
      m_file(m_store.load().value_or(SceneFile{}))
{}

std::vector<SceneRecord> SceneStore::scenesFor(const QString &configID) const
{
    std::vector<SceneRecord> found;
    std::ranges::copy_if(m_file.scenes, std::back_inserter(found),
                         [&](const SceneRecord &scene) { return scene.configID == configID; });
    return found;
}

const SceneRecord *SceneStore::scene(const QUuid &id) const
{
    const auto found = std::ranges::find(m_file.scenes, id, &SceneRecord::id);
    return found == m_file.scenes.end() ? nullptr : &*found;
}

void SceneStore::add(const SceneRecord &scene)
{
    m_file.scenes.push_back(scene);
    m_store.save(m_file);
}

void SceneStore::update(const SceneRecord &scene)
{
    const auto found = std::ranges::find(m_file.scenes, scene.id, &SceneRecord::id);
    if (found == m_file.scenes.end())
        return;
    *found = scene;
    m_store.save(m_file);
}

void SceneStore::remove(const QUuid &id)
{
    std::erase_if(m_file.scenes, [&](const SceneRecord &scene) { return scene.id == id; });
    std::erase_if(m_file.lastAppliedByConfig,
                  [text = canonical(id)](const auto &entry) { return entry.second == text; });
    m_store.save(m_file);
}

void SceneStore::markApplied(const QUuid &sceneID, const QString &configID)
{
    m_file.lastAppliedByConfig[configID] = canonical(sceneID);
    m_store.save(m_file);
}

std::optional<QUuid> SceneStore::lastApplied(const QString &configID) const
{
    const auto found = m_file.lastAppliedByConfig.find(configID);
    if (found == m_file.lastAppliedByConfig.end())
        return {};
    try {
        QUuid id;
        ValueCoding::read(found->second, id, CodingPath());
        return id;
    } catch (const DecodingError &) {
        return {}; // edited by hand into something that is no UUID
    }
}

bool SceneStore::replaceAll(SceneFile contents)
{
    m_file = std::move(contents);
    return m_store.save(m_file);
}

} // namespace Panorel
