#include "Panorel/Panel/PanelController.h"

#include "Panorel/Panel/PanelView.h"
#include "Panorel/Panel/PanelWindow.h"
#include "Panorel/PanelModel.h"
#include "PanorelPorts/ShellPort.h"

namespace Panorel {

void PanelController::DeleteLater::operator()(PanelWindow *panel) const
{
    panel->deleteLater();
}

PanelController::PanelController(PanelModel &model, Prefs &prefs, ShellPort &shell,
                                 HotKeyText textOf)
    : m_model(model), m_prefs(prefs), m_shell(shell), m_textOf(std::move(textOf))
{}

PanelController::~PanelController()
{
    delete m_panel.release(); // there may be no event loop any more
}

void PanelController::toggle(const PanelAnchor &relativeTo, Keyboard keyboard)
{
    if (isOpen())
        close();
    else
        open(relativeTo, keyboard);
}

void PanelController::open(const PanelAnchor &relativeTo, Keyboard keyboard)
{
    if (!isOpen()) {
        m_anchor = relativeTo;
        if (m_model.onOpening)
            m_model.onOpening();
        build();
        place();
        m_panel->setAttribute(Qt::WA_ShowWithoutActivating, keyboard == Keyboard::Leave);
        m_shell.showOnAllDesktops(m_panel->winId());
        m_panel->show();
    }
    m_panel->raise();
    if (keyboard == Keyboard::Take) {
        m_panel->activateWindow();
        m_panel->view().focusFirstControl();
    }
}

void PanelController::close()
{
    if (!isOpen())
        return;
    // It still lives for a while, but is nobody's panel any more.
    disconnect(m_panel.get(), nullptr, this, nullptr);
    disconnect(&m_panel->view(), nullptr, this, nullptr);
    // The window manager gives the keyboard back to the window that had it.
    m_panel->hide();
    m_panel.reset();
}

void PanelController::build()
{
    auto *view = new PanelView(m_model, m_prefs, m_textOf);
    m_panel.reset(new PanelWindow(view, m_shell.isComposited()));
    connect(m_panel.get(), &PanelWindow::closeRequested, this, &PanelController::close);
    connect(view, &PanelView::finished, this, &PanelController::close);
    connect(view, &PanelView::sizeHintChanged, this, &PanelController::place);
}

/// Also when its contents have grown: a panel above a bar grows upwards.
void PanelController::place()
{
    const QRect frame = panelFrame(m_anchor, m_panel->sizeHint());
    if (frame != m_panel->geometry())
        m_panel->setGeometry(frame);
}

} // namespace Panorel
