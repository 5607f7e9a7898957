#include "Panorel/Layouts/LearnedDeskCard.h"

#include "Panorel/Settings/SceneGroup.h"
#include "Panorel/UI/DisplaySchematic.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/NameField.h"
#include "Panorel/UI/StatusLine.h"
#include "Panorel/UI/SymbolButton.h"
#include "Panorel/UI/TextLabel.h"
#include "Panorel/UI/TimeInWords.h"

#include <QHBoxLayout>

namespace Panorel {

LearnedDeskCard::LearnedDeskCard(QWidget *parent)
    : Card(parent), m_schematic(new DisplaySchematic),
      m_name(new NameField(TextStyle::Heading, tr("Desk name"))), m_current(new StatusLine),
      m_displays(new TextLabel(TextStyle::Secondary)),
      m_windows(new TextLabel(TextStyle::Secondary)),
      m_forget(new SymbolButton(Symbol::Trash, tr("Forget…")))
{
    setObjectName(QStringLiteral("learnedDesk"));
    m_windows->setObjectName(QStringLiteral("learned"));
    m_current->setObjectName(QStringLiteral("currentDesk"));
    m_current->setStatus(Status::Good, tr("Current desk"));
    m_schematic->setShowsNames(false); // they stand beside it

    auto *facts = new QVBoxLayout; // below the name's text, which stands a little inside its field
    facts->setContentsMargins(Metrics::tight, 0, 0, 0);
    facts->setSpacing(2);
    facts->addWidget(m_displays);
    facts->addWidget(m_windows);
    facts->addSpacing(Metrics::tight);
    facts->addWidget(m_current);
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    auto *heading = new QHBoxLayout;
    heading->setSpacing(Metrics::small);
    heading->addWidget(m_name, 1);
    heading->addWidget(m_forget);
    column->addLayout(heading);
    column->addLayout(facts);
    column->addStretch();
    auto *layout = new QHBoxLayout;
    layout->setSpacing(Metrics::large);
    layout->addWidget(m_schematic, 0, Qt::AlignTop);
    layout->addLayout(column, 1);
    body()->addLayout(layout);
    connect(m_name, &NameField::renamed, this, &LearnedDeskCard::renamed);
    connect(m_forget, &SymbolButton::clicked, this, &LearnedDeskCard::forgetRequested);
}

void LearnedDeskCard::setDesk(const Layout &desk, bool isCurrent, Instant now)
{
    constexpr QSize schematicRoom{240, 152};
    m_schematic->setDisplays(desk.displays);
    m_schematic->setFixedSize(schematicRoom.width(),
                              m_schematic->sizeWithin(schematicRoom).height());
    if (desk.windows != m_desk.windows)
        m_schematic->setWindows(desk.windows);
    m_desk = desk;
    m_name->setName(desk.name);
    m_forget->setAccessibleDescription(desk.name);
    m_displays->setText(displayNamesText(desk.displays));
    m_windows->setText(
        tr("%1, last learned %2")
            .arg(windowCountText(desk.windows.size()), timeInWords(desk.savedAt, now, locale())));
    m_current->setVisible(isCurrent);
}

} // namespace Panorel
