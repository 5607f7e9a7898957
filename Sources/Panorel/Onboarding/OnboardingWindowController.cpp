#include "Panorel/Onboarding/OnboardingWindowController.h"

#include "Panorel/Onboarding/OnboardingWindow.h"
#include "Panorel/Prefs.h"

#include <QScreen>

namespace Panorel {

OnboardingWindowController::OnboardingWindowController(Prefs &prefs, PermissionCenter &permission,
                                                       Scheduler &scheduler,
                                                       OnboardingActions actions)
    : m_prefs(prefs), m_permission(permission), m_scheduler(scheduler),
      m_actions(std::move(actions))
{}

OnboardingWindowController::~OnboardingWindowController()
{
    delete m_window; // there may be no event loop any more
}

void OnboardingWindowController::showIfNeeded()
{
    if (m_prefs.hasOnboarded())
        return;
    if (!m_window) {
        m_window = new OnboardingWindow(m_permission, m_scheduler, m_actions);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_window, &OnboardingWindow::finished, this, &OnboardingWindowController::finish);
        connect(m_window, &OnboardingWindow::closed, this, [this] { m_window = nullptr; });
        QRect frame(QPoint(), m_window->size()); // not in whatever corner has room
        frame.moveCenter(m_window->screen()->availableGeometry().center());
        m_window->move(frame.topLeft());
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void OnboardingWindowController::finish()
{
    m_prefs.setHasOnboarded(true);
    m_window->close();
}

} // namespace Panorel
