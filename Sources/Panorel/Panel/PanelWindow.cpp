#include "Panorel/Panel/PanelWindow.h"

#include "Panorel/Panel/PanelView.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace Panorel {

namespace {

constexpr int border = 1;

} // namespace

PanelWindow::PanelWindow(PanelView *view, bool isComposited)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m_view(view),
      m_isComposited(isComposited)
{
    setWindowTitle(QStringLiteral("Panorel"));
    setAttribute(Qt::WA_TranslucentBackground, isComposited);
    auto *scrollArea = new QScrollArea;
    scrollArea->setFrameShape(QFrame::NoFrame);
    scrollArea->setFocusPolicy(Qt::NoFocus);
    scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrollArea->setWidgetResizable(true);
    scrollArea->setWidget(view);
    // The window paints what is behind the view, with its corners.
    scrollArea->viewport()->setAutoFillBackground(false);
    view->setAutoFillBackground(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(border, border, border, border);
    layout->addWidget(scrollArea);
}

QSize PanelWindow::sizeHint() const
{
    return m_view->sizeHint() + QSize(2 * border, 2 * border);
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
