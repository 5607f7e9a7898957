#include "Panorel/Panel/SceneList.h"

#include "Panorel/PanelModel.h"
#include "Panorel/UI/ListRow.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/SectionHeading.h"

#include <QVBoxLayout>

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
    connect(m_save, &ListRow::clicked, this, [this] { m_model.onSaveScene(); });
}

void SceneList::refresh()
{
    m_save->setVisible(bool(m_model.onSaveScene));
    if (m_shown == m_model.scenes())
        return;
    m_shown = m_model.scenes();
    buildRows();
}

void SceneList::buildRows()
{
    while (QLayoutItem *item = m_rows->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater(); // it may be the row whose press led here
        delete item;
    }
    for (const SceneRecord &scene : m_shown) {
        auto *row = new ListRow(Symbol::Scene, scene.name);
        if (scene.hotKey)
            row->setTrailingText(m_textOf(*scene.hotKey));
        connect(row, &ListRow::clicked, this, [this, id = scene.id] { m_model.onApplyScene(id); });
        m_rows->addWidget(row);
    }
}

} // namespace Panorel
