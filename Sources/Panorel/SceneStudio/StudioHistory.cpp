#include "Panorel/SceneStudio/StudioHistory.h"

#include <utility>

namespace Panorel {

StudioHistory::StudioHistory(SceneStudioModel &model) : m_model(model), m_original(model.boxes()) {}

void StudioHistory::begin()
{
    end();
    m_begun = m_model.boxes();
}

void StudioHistory::end()
{
    const auto begun = std::exchange(m_begun, std::nullopt);
    if (!begun || *begun == m_model.boxes())
        return;
    m_before.push_back(*begun);
    m_after.clear();
    Q_EMIT changed();
}

void StudioHistory::cancel()
{
    if (const auto begun = std::exchange(m_begun, std::nullopt))
        m_model.setBoxes(*begun);
}

bool StudioHistory::canUndo() const
{
    return !m_before.empty() || (m_begun && *m_begun != m_model.boxes());
}

void StudioHistory::undo()
{
    end();
    if (m_before.empty())
        return;
    m_after.push_back(m_model.boxes());
    const Boxes boxes = std::move(m_before.back());
    m_before.pop_back();
    m_model.setBoxes(boxes);
    Q_EMIT changed();
}

void StudioHistory::redo()
{
    end();
    if (m_after.empty())
        return;
    m_before.push_back(m_model.boxes());
    const Boxes boxes = std::move(m_after.back());
    m_after.pop_back();
    m_model.setBoxes(boxes);
    Q_EMIT changed();
}

} // namespace Panorel
