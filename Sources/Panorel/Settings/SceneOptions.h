#pragma once

#include "PanorelCore/Records/Models.h"

#include <QWidget>

#include <functional>

namespace Panorel {

class PictureField;
class SettingsModel;
class Toggle;

/// What a scene does beside moving its windows, and its key.
class SceneOptions : public QWidget {
    Q_OBJECT

public:
    /// Owns `keyField`, which may be null: then there is no key to set.
    SceneOptions(SettingsModel &model, const QUuid &id, QWidget *keyField,
                 QWidget *parent = nullptr);

    void setScene(const SceneRecord &scene);

private:
    void addRow(const QString &name, const QString &explanation, QWidget *control);
    void change(const std::function<void(SceneRecord &)> &edit);

    SettingsModel &m_model;
    QUuid m_id;
    Toggle *m_opens;
    Toggle *m_hides;
    PictureField *m_picture;
};

} // namespace Panorel
