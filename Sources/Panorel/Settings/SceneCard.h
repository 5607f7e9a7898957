#pragma once

#include "Panorel/Settings/SettingsEnvironment.h"
#include "Panorel/UI/RowCard.h"
#include "PanorelCore/Records/Models.h"

namespace Panorel {

class DisplaySchematic;
class NameField;
class PlainButton;
class SceneOptions;
class SettingsModel;
class TextButton;
class TextLabel;

/// One scene: what it looks like, its name, what can be done with it, and its options once they
/// are asked for.
class SceneCard : public RowCard {
    Q_OBJECT

public:
    /// Without an environment it has no options.
    SceneCard(SettingsModel &model, const std::optional<SettingsEnvironment> &environment,
              QWidget *parent = nullptr);

    void setScene(const SceneRecord &scene);
    QUuid id() const { return m_scene.id; }

    void setEditable(bool isEditable);
    /// So that the user writes another at once.
    void startNaming();

Q_SIGNALS:
    void editRequested(const QUuid &id);
    void deleteRequested(const QUuid &id);

private:
    QWidget *makeSummary();
    QWidget *makeButtons();
    void toggleOptions();
    void rename(const QString &name);

    SettingsModel &m_model;
    std::optional<SettingsEnvironment> m_environment;
    SceneRecord m_scene;
    DisplaySchematic *m_schematic;
    NameField *m_name;
    TextLabel *m_windows;
    TextLabel *m_displays;
    PlainButton *m_edit;
    TextButton *m_disclose;
    std::vector<QWidget *> m_buttons;  ///< each is read out with the scene's name
    SceneOptions *m_options = nullptr; ///< made when first shown
};

} // namespace Panorel
