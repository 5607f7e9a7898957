#include "Panorel/Onboarding/OnboardingWindow.h"
#include "Panorel/Onboarding/OnboardingWindowController.h"
#include "Panorel/Prefs.h"
#include "Panorel/ViewProbe.h"
#include "PanorelEngine/Windows/PermissionCenter.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QPointer>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

/// A user who has just installed Panorel.
struct NewUser {
    InMemoryPlatform platform;
    FakeClock clock;
    FakeScheduler scheduler{clock};
    Prefs prefs{platform.defaults, platform.activationPolicy(), platform.loginItem()};
    PermissionCenter permission{platform.desktop};
    QStringList done;
    OnboardingActions actions{.saveScene =
                                  [this] {
                                      done << QStringLiteral("saved");
                                      return QStringLiteral("Scene <b>1</b>");
                                  },
                              .openPanel = [this] { done << QStringLiteral("panel"); },
                              .openShortcuts = [this] { done << QStringLiteral("shortcuts"); }};
    std::unique_ptr<OnboardingWindowController> controller;

    NewUser() { startProgram(); }
    void startProgram()
    {
        controller =
            std::make_unique<OnboardingWindowController>(prefs, permission, scheduler, actions);
        controller->showIfNeeded();
        if (controller->window() && !QTest::qWaitForWindowActive(controller->window()))
            qFatal("the window does not show");
    }
    OnboardingWindow &window() { return *controller->window(); }
    ViewProbe view() { return {window()}; }
    void click(const char *title) { view().click(title); }
    void goToTheLastPage()
    {
        click("Continue");
        click("Continue");
    }
};

} // namespace

class OnboardingTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewUserIsLedThroughOnce()
    {
        NewUser user;
        user.view().press(Qt::Key_Return); // the keyboard alone will do
        user.view().press(Qt::Key_Left, Qt::AltModifier);
        QTRY_COMPARE(user.window().page(), 0); // a pressed shortcut shows for a moment
        user.goToTheLastPage();
        user.click("Open the panel");
        user.click("Save this arrangement as a scene");
        QCOMPARE(user.view().text("savedScene"), QStringLiteral("Saved as Scene <b>1</b>"));
        user.view().press(Qt::Key_Return); // the next step has the focus
        QCOMPARE(user.done.join(u'|'), QStringLiteral("panel|saved|shortcuts"));
        user.view().photograph("onboarding");
        user.view().press(Qt::Key_Escape);
        QVERIFY(!user.prefs.hasOnboarded()); // closed early: again at the next start

        user.platform.desktop.trusted = false;
        user.startProgram();
        const QPointer<OnboardingWindow> first = &user.window();
        user.controller->showIfNeeded();
        QCOMPARE(&user.window(), first.data());
        user.goToTheLastPage();
        user.click("Grant permission…");
        QCOMPARE(user.platform.desktop.prompts, 1);
        QVERIFY(!user.view().find("Save this arrangement as a scene"));
        user.platform.desktop.trusted = true;
        user.scheduler.advance(1s);
        QVERIFY(user.view().find("Save this arrangement as a scene"));
        user.click("Done");
        QVERIFY(user.prefs.hasOnboarded());
        QTRY_VERIFY(!first); // and nothing watches the permission any more
        QVERIFY(user.scheduler.due().empty());
        user.startProgram();
        QVERIFY(!user.controller->window());
    }
};

QTEST_MAIN(OnboardingTests)
#include "OnboardingTests.moc"
