#include "Panorel/Settings/ScenePicker.h"

#include "Panorel/UI/PlainLine.h"

#include <QStandardItemModel>

namespace Panorel {

ScenePicker::ScenePicker(QWidget *parent) : QComboBox(parent)
{
    constexpr int charactersWide = 16; // a longer name is elided
    setAccessibleName(tr("Scene"));
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(charactersWide);
}

void ScenePicker::setGroups(const std::vector<SceneGroup> &groups)
{
    if (groups == m_groups)
        return;
    m_groups = groups;
    const std::optional<QUuid> chosen = scene();
    clear();
    for (const SceneGroup &group : m_groups) {
        if (m_groups.size() > 1)
            addHeading(plainLine(group.deskName));
        for (const SceneRecord &record : group.scenes)
            addItem(plainLine(record.name), record.id);
    }
    setCurrentIndex(m_groups.size() > 1 ? 1 : 0);
    if (chosen)
        choose(*chosen);
}

void ScenePicker::addHeading(const QString &name)
{
    addItem(name);
    auto *items = qobject_cast<QStandardItemModel *>(model());
    items->item(count() - 1)->setFlags(Qt::NoItemFlags);
}

std::optional<QUuid> ScenePicker::scene() const
{
    const QVariant id = currentData();
    return id.isValid() ? std::optional(id.toUuid()) : std::nullopt;
}

void ScenePicker::choose(const QUuid &scene)
{
    const int index = findData(scene);
    if (index >= 0)
        setCurrentIndex(index);
}

} // namespace Panorel
