#pragma once

#include "PanorelCore/Records/Models.h"

#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace Panorel {

class ListRow;
class PanelModel;

/// How the platform's users know a key combination.
using HotKeyText = std::function<QString(const HotKeyCombo &)>;

/// The scenes of the desk, each a row that switches to it, and the row that adds one. Beside one
/// that was just added stands what sets its key.
class SceneList : public QWidget {
    Q_OBJECT

public:
    /// The model must outlive it.
    SceneList(const PanelModel &model, const HotKeyText &textOf, QWidget *parent = nullptr);

    void refresh();

Q_SIGNALS:
    /// The scene that was just saved is to have a key.
    void setKeyRequested();

private:
    void save();
    QUuid addedScene() const;
    void buildRows();
    QWidget *makeRow(const SceneRecord &scene);

    const PanelModel &m_model;
    HotKeyText m_textOf;
    std::vector<SceneRecord> m_shown;
    QUuid m_justSaved; ///< from here; a key is offered for it
    bool m_isSaving = false;
    QVBoxLayout *m_rows;
    ListRow *m_save;
};

} // namespace Panorel
