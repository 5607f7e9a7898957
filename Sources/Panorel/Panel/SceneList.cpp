#include "Panorel/Panel/SceneList.h"

#include "Panorel/PanelModel.h"
#include "Panorel/UI/ListRow.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SectionHeading.h"
#include "Panorel/UI/TextButton.h"

#include <QVBoxLayout>

#include <algorithm>

namespace Panorel {

SceneList::SceneList(const PanelModel &model, const HotKeyText &textOf, QWidget *parent)
    : QWidget(parent), m_model(model), m_textOf(textOf), m_rows(new QVBoxLayout),
      m_save(new ListRow(Symbol::Plus, tr("Save current as scene")))
{
    m_rows->setSpacing(0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(new SectionHeading(tr("Scenes"), tr("Switch any time")));
    layout->addSpacing(Metrics::tight);
    layout->addLayout(m_rows);
    layout->addWidget(m_save);
    connect(m_save, &ListRow::clicked, this, &SceneList::save);
}

void SceneList::refresh()
{
    m_save->setVisible(bool(m_model.onSaveScene));
    if (m_shown == m_model.scenes())
        return;
    if (m_isSaving)
        m_justSaved = addedScene();
    m_shown = m_model.scenes();
    buildRows();
}

void SceneList::save()
{
    m_isSaving = true;
    m_model.onSaveScene();
    m_isSaving = false;
}

/// Null where there is none.
QUuid SceneList::addedScene() const
{
    for (const SceneRecord &scene : m_model.scenes()) {
        if (std::ranges::find(m_shown, scene.id, &SceneRecord::id) == m_shown.end())
            return scene.id;
    }
    return {};
}

void SceneList::buildRows()
{
    while (QLayoutItem *item = m_rows->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater(); // it may be the row whose press led here
        delete item;
    }
    for (const SceneRecord &scene : m_shown)
        m_rows->addWidget(makeRow(scene));
}

QWidget *SceneList::makeRow(const SceneRecord &scene)
{
    auto *row = new ListRow(Symbol::Scene, scene.name);
    connect(row, &ListRow::clicked, this, [this, id = scene.id] { m_model.onApplyScene(id); });
    if (scene.hotKey)
        row->setTrailingText(m_textOf(*scene.hotKey));
    if (scene.hotKey || scene.id != m_justSaved || !m_model.onOpenShortcuts)
        return row;
    auto *setKey = new TextButton(tr("Set key"));
    setKey->setAccessibleDescription(scene.name);
    connect(setKey, &TextButton::clicked, this, &SceneList::setKeyRequested);
    auto *both = new QWidget;
    auto *layout = new QHBoxLayout(both);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(row);
    layout->addWidget(setKey);
    return both;
}

} // namespace Panorel
