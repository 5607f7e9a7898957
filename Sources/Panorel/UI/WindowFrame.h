#pragma once

#include "PanorelPorts/UserDefaultsPort.h"

#include <QObject>

class QWidget;

namespace Panorel {

/// Keeps a window's size and place from one launch to the next: it opens as it was, and the first
/// time in the middle of the screen. What is stored is read with suspicion; a frame on a display
/// that is gone comes onto one that is there.
class WindowFrame : public QObject {
    Q_OBJECT

public:
    /// Sets the window's frame at once; before it is shown. It is stored under the name whenever
    /// the window hides or the program ends. The window owns this; the defaults must outlive it.
    WindowFrame(QWidget &window, UserDefaultsPort &defaults, const QString &name,
                const QSize &firstSize);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void save();

    QWidget &m_window;
    UserDefaultsPort &m_defaults;
    QString m_key;
};

} // namespace Panorel
