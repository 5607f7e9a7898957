#include "Panorel/Onboarding/OnboardingWindow.h"
#include "Panorel/Onboarding/OnboardingWindowController.h"
#include "Panorel/Prefs.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "Panorel/ViewProbe.h"
#include "PanorelEngine/Windows/PermissionCenter.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QScreen>
#include <QTranslator>

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

const QString readyPage =
    QStringLiteral("Open the panel|Save this arrangement as a scene|Back|Done");

} // namespace

class OnboardingTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewUserIsLedThroughOnce()
    {
        NewUser user;
        const QPoint middle = user.window().screen()->availableGeometry().center();
        const QPoint off = user.window().geometry().center() - middle;
        QVERIFY(off.manhattanLength() < 50); // the window manager's frame takes some
        QCOMPARE(user.view().titles(), QStringLiteral("Continue"));
        user.view().press(Qt::Key_Return); // the keyboard alone will do
        QCOMPARE(user.window().page(), 1);
        user.view().press(Qt::Key_Left, Qt::AltModifier);
        QTRY_COMPARE(user.window().page(), 0); // a pressed shortcut shows for a moment
        user.view().press(Qt::Key_Enter);
        user.view().press(Qt::Key_Space);
        QCOMPARE(user.window().page(), 2);
        QStringList visited;
        for (int i = 0; i < 4; ++i) {
            user.view().press(Qt::Key_Tab);
            visited << user.window().focusWidget()->accessibleName();
        }
        QCOMPARE(visited.join(u'|'), readyPage);
        user.view().press(Qt::Key_Escape);
        QVERIFY(!user.prefs.hasOnboarded()); // closed early: again at the next start
        QVERIFY(!user.controller->window());

        user.startProgram();
        QCOMPARE(user.window().page(), 0);
        QPointer<OnboardingWindow> first = &user.window();
        user.controller->showIfNeeded();
        QCOMPARE(&user.window(), first.data());
        user.goToTheLastPage();
        user.click("Back");
        QCOMPARE(user.window().page(), 1);
        user.click("Continue");
        user.click("Done");
        QVERIFY(user.prefs.hasOnboarded());
        QVERIFY(!user.controller->window());
        QTRY_VERIFY(!first); // and nothing watches the permission any more
        QVERIFY(user.scheduler.due().empty());
        user.startProgram();
        QVERIFY(!user.controller->window());
    }

    void fromTheLastPageToASceneWithAKey()
    {
        NewUser user;
        user.goToTheLastPage();
        user.click("Open the panel");
        user.click("Save this arrangement as a scene");
        QCOMPARE(user.view().text("savedScene"), QStringLiteral("Saved as Scene <b>1</b>"));
        QVERIFY(!user.view().titles().contains(QStringLiteral("Save this arrangement as a scene")));
        user.view().press(Qt::Key_Return); // the next step has the focus
        QCOMPARE(user.done.join(u'|'), QStringLiteral("panel|saved|shortcuts"));
        QVERIFY(user.controller->window());
    }

    void theLastPageSaysWhatIsMissing()
    {
        for (const bool isGrantedByUser : {true, false}) {
            NewUser user;
            user.platform.desktop.trustIsGranted = isGrantedByUser;
            user.platform.desktop.trusted = false;
            user.startProgram();
            user.goToTheLastPage();
            const ViewProbe view = user.view();
            QCOMPARE(view.text("readyTitle"), isGrantedByUser
                                                  ? QStringLiteral("One permission is missing")
                                                  : QStringLiteral("A window manager is missing"));
            const QString grant = QStringLiteral("Grant permission…|");
            QCOMPARE(view.titles(), (isGrantedByUser ? grant : QString())
                                        + QStringLiteral("Open the panel|Back|Done"));
            if (isGrantedByUser)
                view.click("Grant permission…");
            QCOMPARE(user.platform.desktop.prompts, isGrantedByUser ? 1 : 0);
            user.platform.desktop.trusted = true;
            user.scheduler.advance(1s);
            QCOMPARE(view.text("readyTitle"), QStringLiteral("All set"));
            QCOMPARE(view.titles(), readyPage);
        }
    }

    void whatCannotBeDoneIsNotOffered()
    {
        NewUser user;
        user.actions = {};
        user.startProgram();
        user.goToTheLastPage();
        QCOMPARE(user.view().titles(), QStringLiteral("Back|Done"));
    }

    /// Nothing is cut: the window is as high as its texts, in every language and font.
    void allOfItShows()
    {
        for (const QByteArray name : {"en", "en-missing", "de", "de-missing"}) {
            const QByteArray language = name.left(2);
            const bool isTrusted = name == language;
            installTranslations(*qApp, {QString::fromLatin1(language)});
            NewUser user;
            user.platform.desktop.trustIsGranted = false;
            user.platform.desktop.trusted = isTrusted;
            const auto photograph = [&](const QByteArray &page) {
                user.view().photograph("onboarding-" + name + '-' + page, [&] {
                    const auto labels = user.view().shown<QLabel>();
                    return user.window().size() == user.window().sizeHint()
                           && std::ranges::all_of(labels, [&](const QLabel *label) {
                                  const QPoint corner = label->mapTo(&user.window(), QPoint());
                                  return user.window().rect().contains({corner, label->size()});
                              });
                });
            };
            for (const char *page : {"1", "2"}) {
                photograph(page);
                user.view().press(Qt::Key_Return);
            }
            photograph("3");
            if (isTrusted) {
                user.view().shown<ActionControl>(QStringLiteral("saveScene")).at(0)->click();
                photograph("4");
            }
        }
    }

    void cleanup() { qDeleteAll(qApp->findChildren<QTranslator *>()); }
};

QTEST_MAIN(OnboardingTests)
#include "OnboardingTests.moc"
