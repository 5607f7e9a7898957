#include "Panorel/Settings/SceneCard.h"

#include "Panorel/Settings/SceneGroup.h"
#include "Panorel/Settings/SceneOptions.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/UI/DisplaySchematic.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/NameField.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/SymbolButton.h"
#include "Panorel/UI/TextButton.h"
#include "Panorel/UI/TextLabel.h"

#include <QHBoxLayout>

namespace Panorel {

SceneCard::SceneCard(SettingsModel &model, const std::optional<SettingsEnvironment> &environment,
                     QWidget *parent)
    : RowCard(parent), m_model(model), m_environment(environment),
      m_schematic(new DisplaySchematic),
      m_name(new NameField(TextStyle::Heading, tr("Scene name"))),
      m_windows(new TextLabel(TextStyle::Secondary)),
      m_displays(new TextLabel(TextStyle::Secondary)), m_edit(new PlainButton(tr("Edit…"))),
      m_disclose(new TextButton(tr("Key and options")))
{
    setObjectName(QStringLiteral("sceneCard"));
    addRow(makeSummary());
    connect(m_name, &NameField::renamed, this, &SceneCard::rename);
    connect(m_disclose, &TextButton::clicked, this, &SceneCard::toggleOptions);
}

QWidget *SceneCard::makeSummary()
{
    m_schematic->setShowsNames(false); // they stand beside it
    auto *facts = new QVBoxLayout; // below the name's text, which stands a little inside its field
    facts->setContentsMargins(Metrics::tight, 0, 0, 0);
    facts->setSpacing(2);
    facts->addWidget(m_windows);
    facts->addWidget(m_displays);
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(m_name);
    column->addLayout(facts);
    column->addStretch();
    column->addSpacing(Metrics::small);
    column->addWidget(makeButtons());

    auto *summary = new QWidget;
    auto *layout = new QHBoxLayout(summary);
    layout->setContentsMargins(0, Metrics::small, 0, Metrics::small);
    layout->setSpacing(Metrics::medium);
    layout->addWidget(m_schematic, 0, Qt::AlignVCenter);
    layout->addLayout(column, 1);
    return summary;
}

QWidget *SceneCard::makeButtons()
{
    auto *apply = new PlainButton(tr("Apply"));
    auto *remove = new SymbolButton(Symbol::Trash, tr("Delete…"));
    auto *buttons = new QWidget;
    auto *layout = new QHBoxLayout(buttons);
    layout->setContentsMargins(Metrics::tight, 0, 0, 0);
    layout->setSpacing(Metrics::small);
    layout->addWidget(apply);
    layout->addWidget(m_edit);
    layout->addStretch();
    layout->addWidget(m_disclose);
    layout->addWidget(remove);
    m_buttons = {apply, m_edit, m_disclose, remove};
    m_disclose->setVisible(m_environment.has_value());
    connect(apply, &PlainButton::clicked, this, [this] { m_model.applyScene(QUuid(id())); });
    connect(m_edit, &PlainButton::clicked, this, [this] { Q_EMIT editRequested(id()); });
    connect(remove, &SymbolButton::clicked, this, [this] { Q_EMIT deleteRequested(id()); });
    return buttons;
}

void SceneCard::setScene(const SceneRecord &scene)
{
    constexpr QSize schematicRoom{144, 92};
    if (scene.layout != m_scene.layout) {
        m_schematic->setDisplays(scene.layout.displays);
        m_schematic->setWindows(scene.layout.windows);
        m_schematic->setFixedSize(schematicRoom.width(),
                                  m_schematic->sizeWithin(schematicRoom).height());
    }
    m_scene = scene;
    m_name->setName(scene.name);
    QString windows = windowCountText(scene.layout.windows.size());
    if (scene.hotKey)
        windows += QStringLiteral(" · ") + m_model.keyText(*scene.hotKey);
    m_windows->setText(windows);
    m_displays->setText(displayNamesText(scene.layout.displays));
    for (QWidget *button : m_buttons)
        button->setAccessibleDescription(scene.name);
    if (m_options)
        m_options->setScene(scene);
}

void SceneCard::setEditable(bool isEditable)
{
    m_edit->setVisible(isEditable);
}

void SceneCard::startNaming()
{
    m_name->setFocus(Qt::OtherFocusReason);
    m_name->selectAll();
}

void SceneCard::toggleOptions()
{
    if (!m_options) {
        m_options = new SceneOptions(m_model, id(), *m_environment);
        m_options->hide();
        addRow(m_options);
        m_options->setScene(m_scene);
    }
    const bool isOpen = m_options->isHidden();
    m_options->setVisible(isOpen);
    m_disclose->setTitle(isOpen ? tr("Hide options") : tr("Key and options"));
}

void SceneCard::rename(const QString &name)
{
    const SceneRecord *stored = m_model.scene(id());
    if (!stored)
        return;
    SceneRecord scene = *stored;
    scene.name = name;
    m_model.updateScene(scene);
}

} // namespace Panorel
