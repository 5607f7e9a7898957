#pragma once

#include "Panorel/Settings/SceneGroup.h"

#include <QComboBox>

namespace Panorel {

/// Chooses one of all scenes, under the names of their desks where there is more than one.
class ScenePicker : public QComboBox {
    Q_OBJECT

public:
    explicit ScenePicker(QWidget *parent = nullptr);

    /// Keeps the choice where it is still there, otherwise the first is chosen.
    void setGroups(const std::vector<SceneGroup> &groups);
    /// Absent without scenes.
    std::optional<QUuid> scene() const;
    void choose(const QUuid &scene);

private:
    void addHeading(const QString &name);

    std::vector<SceneGroup> m_groups;
};

} // namespace Panorel
