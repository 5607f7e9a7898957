#pragma once

#include "Panorel/Onboarding/OnboardingActions.h"

#include <QWidget>

#include <memory>

class QBoxLayout;

namespace Panorel {

class Card;
class ListRow;
class PermissionCenter;
class ScheduledTask;
class Scheduler;
class StatusLine;
class TextLabel;

/// Whether Panorel has all that it needs, where it is to be found from now on, and a first scene.
/// Follows the permission, which comes from elsewhere and is not announced.
class ReadyPage : public QWidget {
    Q_OBJECT

public:
    /// The permission and the scheduler must outlive it.
    ReadyPage(PermissionCenter &permission, Scheduler &scheduler, OnboardingActions actions,
              QWidget *parent = nullptr);
    ~ReadyPage() override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    Card *makePermissionCard();
    Card *makeTrayCard();
    Card *makeSceneCard();
    QBoxLayout *makeRows();
    void refresh();
    void saveScene();

    PermissionCenter &m_permission;
    Scheduler &m_scheduler;
    OnboardingActions m_actions;
    TextLabel *m_title;
    StatusLine *m_status;
    ListRow *m_grant;
    ListRow *m_openPanel;
    ListRow *m_save;
    StatusLine *m_saved;
    ListRow *m_shortcuts;
    Card *m_sceneCard;
    std::unique_ptr<ScheduledTask> m_watching; ///< while the page is shown
};

} // namespace Panorel
