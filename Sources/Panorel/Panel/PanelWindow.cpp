#include "Panorel/Panel/PanelWindow.h"

#include "Panorel/Panel/PanelView.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Panorel {

namespace {

constexpr int border = 1;

} // namespace

PanelWindow::PanelWindow(PanelView *view, bool isComposited)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m_view(view),
      m_scrollArea(new QScrollArea), m_isComposited(isComposited)
{
    setWindowTitle(QStringLiteral("Panorel"));
    setAttribute(Qt::WA_TranslucentBackground, isComposited);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setWidget(view);
    // The window paints what is behind the view, with its corners.
    m_scrollArea->viewport()->setAutoFillBackground(false);
    view->setAutoFillBackground(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(border, border, border, border);
    layout->addWidget(m_scrollArea);
    connect(view, &PanelView::sizeHintChanged, this, &PanelWindow::scrollWhereNeeded);
}

QSize PanelWindow::sizeHint() const
{
    return m_view->sizeHint() + QSize(2 * border, 2 * border);
}

/// A scroll bar that came while the window was still too low would stay: beside it the texts are
/// narrower, so higher, and need it.
void PanelWindow::scrollWhereNeeded()
{
    m_scrollArea->setVerticalScrollBarPolicy(
        height() < sizeHint().height() ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

void PanelWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    scrollWhereNeeded();
}

void PanelWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT closeRequested();
    else if (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
        m_view->focusFirstControl(); // nothing had the focus, or it would have moved it
    else
        QWidget::keyPressEvent(event);
}

void PanelWindow::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(theme.border, border));
    painter.setBrush(theme.window);
    const double radius = m_isComposited ? Metrics::panelRadius : 0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace Panorel
