#pragma once

#include "Panorel/SceneStudio/SceneStudioModel.h"
#include "Panorel/SceneStudio/StudioDrag.h"
#include "Panorel/UI/ApplicationIcon.h"
#include "Panorel/UI/SchematicPainter.h"

#include <QWidget>

#include <optional>

namespace Panorel {

class StudioHistory;

/// The displays of a scene with its windows as boxes, which are dragged, resized and removed here.
/// Always shows all displays, as large as there is room; boxes may reach beyond them. Every
/// gesture, be it a drag or a key held down, is one step of the history.
class SceneStudioCanvas : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive it.
    SceneStudioCanvas(SceneStudioModel &model, StudioHistory &history, QWidget *parent = nullptr);

    /// By default from the icon theme.
    void setIconOf(IconOf iconOf);

    /// From global coordinates to the canvas. Stays while something is dragged.
    QTransform transform() const;

    /// A box's id, while the box is there.
    std::optional<int> selected() const { return m_selected; }
    void select(std::optional<int> id);
    void removeSelected();

    /// Before anything else changes the boxes.
    void finishGesture();

    /// The selected window, where it is and how large; empty without one.
    QString description() const;

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

Q_SIGNALS:
    /// Another box is selected, or the selected one has changed.
    void selectionChanged();

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    const SceneStudioModel::Box *selectedBox() const;
    std::optional<int> boxAt(const QPointF &position) const;
    Qt::Edges edgesAt(const QPointF &position) const;
    void snap(Qt::KeyboardModifiers modifiers);
    void cancelDrag();
    void nudge(const QKeyEvent &event);
    bool selectNeighbour(int step);
    void boxesChanged();
    void showCursorFor(const QPointF &position);

    SceneStudioModel &m_model;
    StudioHistory &m_history;
    IconOf m_iconOf = applicationIcon;
    std::optional<int> m_selected;
    std::optional<StudioDrag> m_drag; ///< while the mouse holds a box
};

} // namespace Panorel
