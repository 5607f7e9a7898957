#pragma once

#include "Panorel/UI/SchematicPainter.h"

#include <QWidget>

namespace Panorel {

/// The displays of a desk, to scale, and optionally the windows on them. From 64 pixels wide to a
/// whole window, the same widget everywhere: what has no room is left out.
class DisplaySchematic : public QWidget {
    Q_OBJECT

public:
    explicit DisplaySchematic(QWidget *parent = nullptr);

    void setDisplays(const std::vector<DisplayInfo> &displays);
    /// In any order; the frontmost (zOrder 0) is drawn last.
    void setWindows(const std::vector<WindowRecord> &windows);
    /// Of the displays, where there is room; by default they are.
    void setShowsNames(bool showsNames);
    /// By default from the icon theme; a null icon gives a neutral symbol.
    void setIconOf(IconOf iconOf);

    /// From global coordinates to the widget's; identity without displays.
    QTransform transform() const;

    /// As wide as the room unless it would be too high: the size that the displays fill.
    QSize sizeWithin(const QSize &room) const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::vector<DisplayInfo> m_displays;
    std::vector<WindowRecord> m_windows; ///< backmost first
    IconOf m_iconOf;
    bool m_showsNames = true;
};

} // namespace Panorel
