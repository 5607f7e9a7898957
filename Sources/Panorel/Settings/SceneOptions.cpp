#include "Panorel/Settings/SceneOptions.h"

#include "Panorel/Settings/PictureField.h"
#include "Panorel/Settings/SettingsModel.h"
#include "Panorel/Settings/ShortcutRow.h"
#include "Panorel/UI/Separator.h"
#include "Panorel/UI/SettingRow.h"
#include "Panorel/UI/Toggle.h"

#include <QVBoxLayout>

namespace Panorel {

SceneOptions::SceneOptions(SettingsModel &model, const QUuid &id,
                           const SettingsEnvironment &environment, QWidget *parent)
    : QWidget(parent), m_model(model), m_id(id), m_opens(new Toggle), m_hides(new Toggle),
      m_picture(new PictureField),
      m_key(new ShortcutRow(environment,
                            [&model](const HotKeyCombo &combo) { return model.keyText(combo); }))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    addRow(m_key);
    addRow(new SettingRow(tr("Open missing applications"),
                          tr("Starts those of the scene that do not run."), m_opens));
    addRow(new SettingRow(
        tr("Hide other applications"),
        tr("Off: the scene's windows come forward and everything else stays where it is. On: "
           "apps with no window in the scene get hidden — the Dock brings them back."),
        m_hides));
    addRow(new SettingRow(tr("Desktop picture"), {}, m_picture));

    connect(m_opens, &Toggle::clicked, this, [this](bool isOn) {
        change([isOn](SceneRecord &scene) { scene.opensMissingApps = isOn; });
    });
    connect(m_hides, &Toggle::clicked, this, [this](bool isOn) {
        change([isOn](SceneRecord &scene) { scene.hidesOtherApps = isOn; });
    });
    connect(m_picture, &PictureField::chosen, this, [this](const std::optional<QString> &path) {
        change([&path](SceneRecord &scene) { scene.wallpaperPath = path; });
    });
    connect(m_key, &ShortcutRow::keyChosen, this, [this](const std::optional<HotKeyCombo> &combo) {
        change([&combo](SceneRecord &scene) { scene.hotKey = combo; });
    });
    // Whether others have the key depends on theirs.
    connect(&m_model, &SettingsModel::changed, this, [this] {
        if (const SceneRecord *scene = m_model.scene(m_id))
            showKey(*scene);
    });
}

void SceneOptions::addRow(QWidget *row)
{
    if (layout()->count() > 0)
        layout()->addWidget(new Separator);
    layout()->addWidget(row);
}

void SceneOptions::setScene(const SceneRecord &scene)
{
    m_opens->setChecked(scene.opensMissingApps);
    m_hides->setChecked(scene.hidesOtherApps);
    m_picture->setPath(scene.wallpaperPath);
    showKey(scene);
}

void SceneOptions::showKey(const SceneRecord &scene)
{
    m_key->showKey(tr("Key"), tr("Applies the scene from anywhere."), scene.hotKey,
                   scene.hotKey ? m_model.collisions(*scene.hotKey, keyID(scene)) : QStringList());
}

/// Of the scene as it is stored now, which may be gone.
void SceneOptions::change(const std::function<void(SceneRecord &)> &edit)
{
    const SceneRecord *stored = m_model.scene(m_id);
    if (!stored)
        return;
    SceneRecord scene = *stored;
    edit(scene);
    m_model.updateScene(scene);
}

} // namespace Panorel
