#include "Panorel/StatusItemController.h"

#include "Panorel/AppIcon.h"
#include "Panorel/Bus/SessionBus.h"
#include "Panorel/Panel/PanelController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/UI/PlainLine.h"
#include "PanorelPorts/ShellPort.h"

#include <QCursor>

namespace Panorel {

StatusItemController::StatusItemController(PanelModel &model, PanelController &panel,
                                           ShellPort &shell, StatusItemPort *statusItem,
                                           VisibleFrameAt visibleFrameAt)
    : m_model(model), m_panel(panel), m_statusItem(statusItem),
      m_visibleFrameAt(std::move(visibleFrameAt)), m_menu(model, [this] { openPanel(); })
{
    // One change of the desk sets many values; the menu follows once they are all set.
    connect(&m_model, &PanelModel::changed, this, &StatusItemController::refresh,
            Qt::QueuedConnection);
    if (m_statusItem) {
        m_statusItem->show([this] { m_panel.toggle(anchor(true)); });
        refresh();
    } else if (shell.hasEmbeddingTray() || !SessionBus::isPresent()) {
        showIcon();
    } else {
        m_trayWatcher = SessionBus::watchForTray([this] { showIcon(); });
    }
}

StatusItemController::~StatusItemController()
{
    if (m_statusItem)
        m_statusItem->hide();
}

void StatusItemController::showIcon()
{
    m_item = std::make_unique<QSystemTrayIcon>(appIcon());
    m_item->setContextMenu(&m_menu.menu());
    connect(m_item.get(), &QSystemTrayIcon::activated, this, &StatusItemController::clicked);
    refresh();
    m_item->show();
}

void StatusItemController::refresh()
{
    m_menu.rebuild();
    const QString toolTip = tr("Panorel: %1").arg(m_model.deskName());
    if (m_statusItem)
        m_statusItem->setToolTip(toolTip);
    if (m_item)
        m_item->setToolTip(plainToolTip(toolTip));
}

void StatusItemController::clicked(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Trigger)
        m_panel.toggle(anchor(true));
}

void StatusItemController::openPanel()
{
    m_panel.open(anchor(false), PanelController::Keyboard::Take);
}

/// Empty where it is not known.
QRect StatusItemController::buttonFrame() const
{
    if (!m_statusItem)
        return m_item ? m_item->geometry() : QRect();
    const Rect frame = m_statusItem->buttonFrame().value_or(Rect());
    return QRectF(frame.x, frame.y, frame.width, frame.height).toAlignedRect();
}

PanelAnchor StatusItemController::anchor(bool isPointer) const
{
    PanelAnchor anchor;
    const QRect button = buttonFrame();
    if (!button.isEmpty())
        anchor.button = button;
    else if (isPointer)
        anchor.pointer = QCursor::pos();
    anchor.visibleFrame = m_visibleFrameAt(button.isEmpty() ? QCursor::pos() : button.center());
    return anchor;
}

} // namespace Panorel
