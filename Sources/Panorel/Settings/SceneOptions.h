#pragma once

#include "PanorelCore/Records/Models.h"

#include <QWidget>

#include <functional>

namespace Panorel {

class PictureField;
class SettingsModel;
class ShortcutRow;
struct SettingsEnvironment;
class Toggle;

/// What a scene does beside moving its windows, and its key.
class SceneOptions : public QWidget {
    Q_OBJECT

public:
    SceneOptions(SettingsModel &model, const QUuid &id, const SettingsEnvironment &environment,
                 QWidget *parent = nullptr);

    void setScene(const SceneRecord &scene);

private:
    void addRow(QWidget *row);
    void showKey(const SceneRecord &scene);
    void change(const std::function<void(SceneRecord &)> &edit);

    SettingsModel &m_model;
    QUuid m_id;
    Toggle *m_opens;
    Toggle *m_hides;
    PictureField *m_picture;
    ShortcutRow *m_key;
};

} // namespace Panorel
