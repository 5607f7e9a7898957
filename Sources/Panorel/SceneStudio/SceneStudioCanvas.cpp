#include "Panorel/SceneStudio/SceneStudioCanvas.h"

#include "Panorel/SceneStudio/BoxGrips.h"
#include "Panorel/SceneStudio/StudioHistory.h"
#include "Panorel/SceneStudio/StudioPainter.h"
#include "Panorel/SceneStudio/StudioText.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainLine.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace Panorel {

namespace {

/// Where an arrow key points to; nothing for other keys.
std::optional<Size> directionOf(int key)
{
    switch (key) {
    case Qt::Key_Left:
        return Size{-1, 0};
    case Qt::Key_Right:
        return Size{1, 0};
    case Qt::Key_Up:
        return Size{0, -1};
    case Qt::Key_Down:
        return Size{0, 1};
    default:
        return {};
    }
}

} // namespace

SceneStudioCanvas::SceneStudioCanvas(SceneStudioModel &model, StudioHistory &history,
                                     QWidget *parent)
    : QWidget(parent), m_model(model), m_history(history)
{
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAccessibleName(tr("Windows of the scene"));
    connect(&m_model, &SceneStudioModel::changed, this, &SceneStudioCanvas::boxesChanged);
}

void SceneStudioCanvas::setIconOf(IconOf iconOf)
{
    m_iconOf = std::move(iconOf);
    update();
}

QTransform SceneStudioCanvas::transform() const
{
    if (m_drag)
        return m_drag->transform();
    Rect bounds = m_model.bounds();
    if (m_model.displays().empty()) {
        for (const SceneStudioModel::Box &box : m_model.boxes())
            bounds = bounds.united(box.record.frame);
    }
    constexpr int margin = Metrics::wide + Metrics::small;
    return fitting(rectOf(bounds), QRectF(rect()).adjusted(margin, margin, -margin, -margin));
}

const SceneStudioModel::Box *SceneStudioCanvas::selectedBox() const
{
    return m_selected ? m_model.box(*m_selected) : nullptr;
}

QString SceneStudioCanvas::description() const
{
    const SceneStudioModel::Box *box = selectedBox();
    return box ? StudioText::descriptionOf(*box) : QString();
}

void SceneStudioCanvas::select(std::optional<int> id)
{
    if (id == m_selected)
        return;
    finishGesture();
    m_selected = id;
    boxesChanged();
}

void SceneStudioCanvas::boxesChanged()
{
    if (!selectedBox())
        m_selected.reset();
    setAccessibleDescription(description());
    update();
    Q_EMIT selectionChanged();
}

void SceneStudioCanvas::removeSelected()
{
    if (!selectedBox() || m_drag)
        return;
    const auto index = std::size_t(selectedBox() - m_model.boxes().data());
    m_history.begin();
    m_model.removeBox(*m_selected);
    m_history.end();
    const auto &boxes = m_model.boxes();
    if (!boxes.empty()) // so that the next key press removes the next one
        select(boxes[std::min(index, boxes.size() - 1)].id);
}

std::optional<int> SceneStudioCanvas::boxAt(const QPointF &position) const
{
    for (const SceneStudioModel::Box &box : m_model.boxes()) { // the frontmost first
        if (transform().mapRect(rectOf(box.record.frame)).contains(position))
            return box.id;
    }
    return {};
}

Qt::Edges SceneStudioCanvas::edgesAt(const QPointF &position) const
{
    const SceneStudioModel::Box *box = selectedBox();
    return box ? gripsAt(transform().mapRect(rectOf(box->record.frame)), position) : Qt::Edges();
}

void SceneStudioCanvas::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    finishGesture();
    const QPointF position = event->position();
    const Qt::Edges edges = edgesAt(position);
    if (!edges)
        select(boxAt(position));
    if (!selectedBox())
        return;
    m_history.begin();
    const QTransform current = transform();
    m_drag.emplace(m_model, *m_selected, edges, position, current);
}

void SceneStudioCanvas::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_drag)
        return showCursorFor(event->position());
    m_drag->moveTo(event->position(), event->modifiers());
    update();
}

void SceneStudioCanvas::snap(Qt::KeyboardModifiers modifiers)
{
    m_drag->setModifiers(modifiers);
    update(); // the lines may go while the box stays
}

void SceneStudioCanvas::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_drag)
        return;
    finishGesture();
    showCursorFor(event->position());
}

void SceneStudioCanvas::finishGesture()
{
    m_drag.reset();
    m_history.end();
    update();
}

void SceneStudioCanvas::cancelDrag()
{
    m_history.cancel();
    finishGesture();
}

void SceneStudioCanvas::showCursorFor(const QPointF &position)
{
    const Qt::Edges edges = edgesAt(position);
    if (edges || boxAt(position))
        setCursor(cursorFor(edges));
    else
        unsetCursor();
}

void SceneStudioCanvas::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (m_drag) {
        if (key == Qt::Key_Escape)
            cancelDrag();
        else if (key == Qt::Key_Alt)
            snap(event->modifiers() | Qt::AltModifier);
    } else if (directionOf(key) && selectedBox()) {
        nudge(*event);
    } else if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
        removeSelected();
    } else {
        QWidget::keyPressEvent(event);
    }
}

/// With Control its lower right corner.
void SceneStudioCanvas::nudge(const QKeyEvent &event)
{
    if (!event.isAutoRepeat())
        m_history.begin();
    const double step = event.modifiers() & Qt::ShiftModifier ? 10 : 1;
    const Size direction = *directionOf(event.key());
    Qt::Edges edges;
    if (event.modifiers() & Qt::ControlModifier)
        edges = direction.width != 0 ? Qt::RightEdge : Qt::BottomEdge;
    StudioGesture(m_model, *m_selected, edges)
        .dragTo({direction.width * step, direction.height * step}, 0);
}

void SceneStudioCanvas::keyReleaseEvent(QKeyEvent *event)
{
    if (m_drag && event->key() == Qt::Key_Alt)
        snap(event->modifiers() & ~Qt::AltModifier);
    else if (!m_drag && directionOf(event->key()) && !event->isAutoRepeat())
        finishGesture();
    else
        QWidget::keyReleaseEvent(event);
}

void SceneStudioCanvas::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    const auto &boxes = m_model.boxes();
    if (boxes.empty())
        return;
    if (event->reason() == Qt::TabFocusReason)
        select(boxes.front().id);
    else if (event->reason() == Qt::BacktabFocusReason)
        select(boxes.back().id);
}

void SceneStudioCanvas::focusOutEvent(QFocusEvent *event)
{
    finishGesture();
    QWidget::focusOutEvent(event);
}

/// Tab visits the boxes from front to back and then goes on.
bool SceneStudioCanvas::focusNextPrevChild(bool next)
{
    return selectNeighbour(next ? 1 : -1) || QWidget::focusNextPrevChild(next);
}

bool SceneStudioCanvas::selectNeighbour(int step)
{
    const auto &boxes = m_model.boxes();
    if (boxes.empty() || m_drag)
        return false;
    if (!selectedBox()) {
        select(step > 0 ? boxes.front().id : boxes.back().id);
        return true;
    }
    const auto index = selectedBox() - boxes.data() + step;
    if (index < 0 || std::size_t(index) >= boxes.size())
        return false;
    select(boxes[std::size_t(index)].id);
    return true;
}

bool SceneStudioCanvas::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const auto id = boxAt(help->pos());
        const QString text =
            id ? plainToolTip(StudioText::nameOf(m_model.box(*id)->record)) : QString();
        QToolTip::showText(help->globalPos(), text, this);
        return true;
    }
    if (event->type() == QEvent::ApplicationFontChange)
        update();
    return QWidget::event(event);
}

QSize SceneStudioCanvas::minimumSizeHint() const
{
    return {240, 160};
}

QSize SceneStudioCanvas::sizeHint() const
{
    return {720, 420};
}

void SceneStudioCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    StudioPainter studio(painter, transform(), rect(), palette());
    studio.drawGround();
    studio.drawScene(m_model, m_iconOf);
    const SceneStudioModel::Box *box = selectedBox();
    if (!box)
        return;
    studio.drawSelection(box->record.frame, hasFocus());
    if (m_drag && m_drag->hasMoved())
        studio.drawDrag(box->record.frame, m_drag->guides());
}

} // namespace Panorel
