#pragma once

#include <QWidget>

class QStackedWidget;

namespace Panorel {

struct OnboardingActions;
class PageDots;
class PermissionCenter;
class PrimaryButton;
class Scheduler;
class TextButton;

/// The welcome window: what Panorel does, how, and whether all is there that it needs. As large as
/// its texts, so it has no size to remember.
class OnboardingWindow : public QWidget {
    Q_OBJECT

public:
    /// The permission and the scheduler must outlive it.
    OnboardingWindow(PermissionCenter &permission, Scheduler &scheduler,
                     const OnboardingActions &actions, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    int page() const; ///< from 0 on

Q_SIGNALS:
    /// The user went through to the end.
    void finished();
    /// In whatever way.
    void closed();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *makeFooter();
    void showPage(int page);
    void goOn();

    QStackedWidget *m_pages;
    PageDots *m_dots;
    TextButton *m_back;
    PrimaryButton *m_continue;
};

} // namespace Panorel
