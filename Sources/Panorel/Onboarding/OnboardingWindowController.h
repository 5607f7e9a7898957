#pragma once

#include "Panorel/Onboarding/OnboardingActions.h"
#include "Panorel/Onboarding/OnboardingWindow.h"

#include <QPointer>

namespace Panorel {

class Prefs;

/// Shows the welcome window at every start until the user has been through it.
class OnboardingWindowController : public QObject {
    Q_OBJECT

public:
    /// All must outlive the controller.
    OnboardingWindowController(Prefs &prefs, PermissionCenter &permission, Scheduler &scheduler,
                               OnboardingActions actions);
    ~OnboardingWindowController() override;

    /// Nothing once it was finished. A window that is open comes to the front.
    void showIfNeeded();

    /// Null while there is none.
    OnboardingWindow *window() const { return m_window; }

private:
    void finish();

    Prefs &m_prefs;
    PermissionCenter &m_permission;
    Scheduler &m_scheduler;
    OnboardingActions m_actions;
    QPointer<OnboardingWindow> m_window; ///< deletes itself when it is closed
};

} // namespace Panorel
