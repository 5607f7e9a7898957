#pragma once

#include "Panorel/StatusMenu.h"
#include "PanorelPorts/StatusItemPort.h"

#include <QSystemTrayIcon>

#include <memory>

namespace Panorel {

class PanelController;
struct PanelAnchor;
class ShellPort;

/// The program's button in the menu bar, or its icon in the tray where there is no menu bar. Waits
/// for a tray that comes up later; without any the program runs all the same and is reached by
/// starting it again.
class StatusItemController : public QObject {
    Q_OBJECT

public:
    /// What panels and docks leave of the screen that the point is on, in Qt's coordinates.
    using VisibleFrameAt = std::function<QRect(const QPoint &)>;

    /// All must outlive the controller. Without a `statusItem` it makes a tray icon.
    StatusItemController(PanelModel &model, PanelController &panel, ShellPort &shell,
                         StatusItemPort *statusItem, VisibleFrameAt visibleFrameAt);
    ~StatusItemController() override;

    /// For a second start of the program: opens the panel and gives it the keyboard.
    void openPanel();

private:
    void showIcon();
    void clicked(QSystemTrayIcon::ActivationReason reason);
    QRect buttonFrame() const;
    PanelAnchor anchor(bool isPointer) const;
    void refresh();

    PanelModel &m_model;
    PanelController &m_panel;
    StatusItemPort *m_statusItem; ///< null where there is a tray instead
    VisibleFrameAt m_visibleFrameAt;
    StatusMenu m_menu;
    std::unique_ptr<QObject> m_trayWatcher;
    std::unique_ptr<QSystemTrayIcon> m_item; ///< absent until a tray can be there
};

} // namespace Panorel
