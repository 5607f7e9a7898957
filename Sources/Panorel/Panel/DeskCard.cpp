#include "Panorel/Panel/DeskCard.h"

#include "Panorel/PanelModel.h"
#include "Panorel/UI/DisplaySchematic.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextLabel.h"

#include <QVBoxLayout>

namespace Panorel {

DeskCard::DeskCard(QWidget *parent)
    : Card(parent), m_schematic(new DisplaySchematic), m_name(new TextLabel(TextStyle::Title)),
      m_displays(new TextLabel(TextStyle::Secondary, TextLabel::Fit::Wrap))
{
    m_schematic->setFixedSize(m_schematic->sizeHint());
    m_name->setObjectName(QStringLiteral("deskName"));
    m_displays->setObjectName(QStringLiteral("displayNames"));

    auto *texts = new QVBoxLayout;
    texts->setSpacing(Metrics::tight);
    texts->addStretch();
    texts->addWidget(m_name);
    texts->addWidget(m_displays);
    texts->addStretch();
    auto *line = new QHBoxLayout;
    line->setSpacing(Metrics::medium);
    line->addWidget(m_schematic, 0, Qt::AlignVCenter);
    line->addLayout(texts, 1);
    body()->addLayout(line);
}

void DeskCard::showDesk(const PanelModel &model)
{
    const bool hasDisplays = !model.displays().empty();
    m_schematic->setDisplays(model.displays());
    m_name->setText(model.deskName());
    m_displays->setText(hasDisplays ? model.displayNames() : tr("No displays detected"));
}

} // namespace Panorel
