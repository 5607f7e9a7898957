#include "Panorel/UI/WindowFrame.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QWidget>

namespace Panorel {

WindowFrame::WindowFrame(QWidget &window, UserDefaultsPort &defaults, const QString &name,
                         const QSize &firstSize)
    : QObject(&window), m_window(window), m_defaults(defaults),
      m_key(name + QStringLiteral("WindowFrame"))
{
    if (!window.restoreGeometry(defaults.data(m_key).value_or(QByteArray()))) {
        const QRect available = window.screen()->availableGeometry();
        QRect frame(QPoint(), firstSize.boundedTo(available.size()));
        frame.moveCenter(available.center());
        window.setGeometry(frame);
    }
    window.installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &WindowFrame::save);
}

bool WindowFrame::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Hide)
        save();
    return QObject::eventFilter(object, event);
}

void WindowFrame::save()
{
    m_defaults.setData(m_key, m_window.saveGeometry());
}

} // namespace Panorel
