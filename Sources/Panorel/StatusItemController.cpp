#include "Panorel/StatusItemController.h"

#include "Panorel/AppIcon.h"
#include "Panorel/Panel/PanelController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/SessionBus.h"
#include "PanorelPorts/ShellPort.h"

#include <QCursor>

namespace Panorel {

StatusItemController::StatusItemController(PanelModel &model, PanelController &panel,
                                           ShellPort &shell, VisibleFrameAt visibleFrameAt)
    : m_model(model), m_panel(panel), m_visibleFrameAt(std::move(visibleFrameAt)),
      m_menu(model, [this] { openPanel(); })
{
    // One change of the desk sets many values; the menu follows once they are all set.
    connect(&m_model, &PanelModel::changed, this, &StatusItemController::refresh,
            Qt::QueuedConnection);
    if (shell.hasEmbeddingTray() || !SessionBus::isPresent())
        showIcon();
    else
        m_trayWatcher.emplace([this] { showIcon(); });
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
    if (m_item)
        m_item->setToolTip(tr("Panorel: %1").arg(m_model.deskName()));
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

PanelAnchor StatusItemController::anchor(bool isPointer) const
{
    PanelAnchor anchor;
    const QRect button = m_item ? m_item->geometry() : QRect();
    if (!button.isEmpty())
        anchor.button = button;
    else if (isPointer)
        anchor.pointer = QCursor::pos();
    anchor.visibleFrame = m_visibleFrameAt(button.isEmpty() ? QCursor::pos() : button.center());
    return anchor;
}

} // namespace Panorel
