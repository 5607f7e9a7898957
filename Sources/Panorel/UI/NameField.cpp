#include "Panorel/UI/NameField.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/PlainLine.h"
#include "Panorel/UI/Theme.h"

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace Panorel {

NameField::NameField(TextStyle style, const QString &purpose, QWidget *parent)
    : QLineEdit(parent), m_style(style)
{
    setAccessibleName(purpose);
    setAttribute(Qt::WA_Hover);
    setFont(fontOf(style));
    connect(this, &QLineEdit::returnPressed, this, [this] { clearFocus(); });
}

void NameField::setName(const QString &name)
{
    m_name = name;
    if (!hasFocus())
        setText(plainLine(name));
    update();
}

QSize NameField::sizeHint() const
{
    const int height = std::max(Metrics::hitArea, fontMetrics().height() + Metrics::small);
    return {fontMetrics().horizontalAdvance(plainLine(m_name)) + 2 * Metrics::small, height};
}

QSize NameField::minimumSizeHint() const
{
    return {Metrics::hitArea, sizeHint().height()};
}

void NameField::take()
{
    const QString name = plainLine(text());
    const QString shown = plainLine(m_name);
    setText(name.isEmpty() ? shown : name);
    if (!name.isEmpty() && name != shown) {
        m_name = name;
        Q_EMIT renamed(name);
    }
}

bool NameField::event(QEvent *event)
{
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(fontOf(m_style));
        updateGeometry();
    }
    if (event->type() == QEvent::ToolTip && !hasFocus()) {
        const bool isElided = sizeHint().width() > width();
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(),
                           isElided ? plainToolTip(m_name) : QString(), this);
        return true;
    }
    // A window's own Escape must not close it while a name is being written.
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

/// Our buttons take no focus when clicked; a click anywhere else ends the writing all the same.
bool NameField::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType() && watched != this
        && !QApplication::activePopupWidget())
        clearFocus();
    return QLineEdit::eventFilter(watched, event);
}

void NameField::focusInEvent(QFocusEvent *event)
{
    qApp->installEventFilter(this);
    QLineEdit::focusInEvent(event);
}

void NameField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() == Qt::PopupFocusReason) // its own menu: the user is still at it
        return;
    qApp->removeEventFilter(this);
    deselect();
    take();
}

void NameField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return QLineEdit::keyPressEvent(event);
    setText(plainLine(m_name));
    clearFocus();
}

void NameField::paintEvent(QPaintEvent *event)
{
    if (hasFocus())
        return QLineEdit::paintEvent(event);
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse()) {
        painter.setPen(QPen(theme.line, 1));
        painter.setBrush(theme.hover);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5),
                                Metrics::controlRadius, Metrics::controlRadius);
    }
    const QRect area = rect().adjusted(Metrics::tight, 0, -Metrics::tight, 0);
    painter.setPen(theme.text);
    painter.drawText(area, Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(plainLine(m_name), Qt::ElideRight, area.width()));
}

} // namespace Panorel
