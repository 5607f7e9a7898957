#pragma once

#include <QWidget>

class QScrollArea;

namespace Panorel {

class PanelView;

/// The window around the panel's view: no title bar, one hairline border, above the others. Its
/// corners are round where windows may be translucent. Contents that are higher than the screen
/// scroll.
class PanelWindow : public QWidget {
    Q_OBJECT

public:
    /// Owns the view.
    PanelWindow(PanelView *view, bool isComposited);

    PanelView &view() const { return *m_view; }
    /// What the view asks for, with the border.
    QSize sizeHint() const override;

Q_SIGNALS:
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void scrollWhereNeeded();

    PanelView *m_view;
    QScrollArea *m_scrollArea;
    bool m_isComposited;
};

} // namespace Panorel
