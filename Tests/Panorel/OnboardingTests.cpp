#include "Panorel/Onboarding/OnboardingWindow.h"
#include "Panorel/Onboarding/OnboardingWindowController.h"
#include "Panorel/Prefs.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "Panorel/UI/ActionControl.h"
#include "PanorelEngine/Windows/PermissionCenter.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QScreen>
#include <QTest>
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
    QStringList offered()
    {
        QStringList titles;
        for (const ActionControl *control : window().findChildren<ActionControl *>()) {
            if (control->isVisible())
                titles << control->title();
        }
        return titles;
    }
    void click(const char *title)
    {
        for (ActionControl *control : window().findChildren<ActionControl *>()) {
            if (control->isVisible() && control->title() == QString::fromUtf8(title))
                return QTest::mouseClick(control, Qt::LeftButton);
        }
        qFatal("no control %s", title);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(window().focusWidget(), key, modifiers);
    }
    QString text(const char *name)
    {
        auto *found = window().findChild<QWidget *>(QString::fromLatin1(name));
        auto *label = qobject_cast<QLabel *>(found);
        if (!found->isVisible())
            return {};
        return label ? label->text() : found->findChild<QLabel *>()->text();
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
        QCOMPARE(user.window().page(), 0);
        const QPoint middle = user.window().screen()->availableGeometry().center();
        const QPoint off = user.window().geometry().center() - middle;
        QVERIFY(off.manhattanLength() < 50); // the window manager's frame takes some
        QCOMPARE(user.offered(), QStringList{QStringLiteral("Continue")});
        user.click("Continue");
        user.click("Back");
        QCOMPARE(user.window().page(), 0);
        user.click("Continue");
        user.click("Continue");
        QCOMPARE(user.window().page(), 2);
        user.window().close();
        QVERIFY(!user.prefs.hasOnboarded()); // closed early: again at the next start
        QVERIFY(!user.controller->window());

        user.startProgram();
        QCOMPARE(user.window().page(), 0);
        QPointer<OnboardingWindow> first = &user.window();
        user.controller->showIfNeeded();
        QCOMPARE(&user.window(), first.data());
        user.click("Continue");
        user.click("Continue");
        QVERIFY(!user.prefs.hasOnboarded());
        user.click("Done");
        QVERIFY(user.prefs.hasOnboarded());
        QCOMPARE(user.platform.defaults.boolean(QStringLiteral("hasOnboarded")), true);
        QVERIFY(!user.controller->window());
        QTRY_VERIFY(!first); // and nothing watches the permission any more
        QVERIFY(user.scheduler.due().empty());
        user.startProgram();
        QVERIFY(!user.controller->window());
    }

    void theKeyboardAloneWillDo()
    {
        NewUser user;
        user.press(Qt::Key_Return);
        QCOMPARE(user.window().page(), 1);
        user.press(Qt::Key_Left, Qt::AltModifier);
        QTRY_COMPARE(user.window().page(), 0); // a pressed shortcut shows for a moment
        user.press(Qt::Key_Enter);
        user.press(Qt::Key_Space);
        QCOMPARE(user.window().page(), 2);
        QStringList visited;
        for (int i = 0; i < 4; ++i) {
            user.press(Qt::Key_Tab);
            visited << user.window().focusWidget()->accessibleName();
        }
        QCOMPARE(visited.join(u'|'), readyPage);
        user.press(Qt::Key_Escape);
        QVERIFY(!user.controller->window() && !user.prefs.hasOnboarded());
    }

    void fromTheLastPageToASceneWithAKey()
    {
        NewUser user;
        user.click("Continue");
        user.click("Continue");
        user.click("Open the panel");
        user.click("Save this arrangement as a scene");
        QCOMPARE(user.text("savedScene"), QStringLiteral("Saved as Scene <b>1</b>"));
        QVERIFY(!user.offered().contains(QStringLiteral("Save this arrangement as a scene")));
        user.press(Qt::Key_Return); // the next step has the focus
        QCOMPARE(user.done.join(u'|'), QStringLiteral("panel|saved|shortcuts"));
        QVERIFY(user.controller->window());
    }

    void theLastPageSaysWhatIsMissing_data()
    {
        QTest::addColumn<bool>("isGrantedByUser");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("offered");
        QTest::newRow("a permission")
            << true << QStringLiteral("One permission is missing")
            << QStringLiteral("Grant permission…|Open the panel|Back|Done");
        QTest::newRow("a window manager") << false << QStringLiteral("A window manager is missing")
                                          << QStringLiteral("Open the panel|Back|Done");
    }

    void theLastPageSaysWhatIsMissing()
    {
        QFETCH(bool, isGrantedByUser);
        QFETCH(QString, title);
        QFETCH(QString, offered);
        NewUser user;
        user.platform.desktop.trustIsGranted = isGrantedByUser;
        user.platform.desktop.trusted = false;
        user.startProgram();
        user.click("Continue");
        user.click("Continue");
        QCOMPARE(user.text("readyTitle"), title);
        QCOMPARE(user.offered().join(u'|'), offered);
        if (isGrantedByUser)
            user.click("Grant permission…");
        QCOMPARE(user.platform.desktop.prompts, isGrantedByUser ? 1 : 0);
        user.platform.desktop.trusted = true;
        user.scheduler.advance(1s);
        QCOMPARE(user.text("readyTitle"), QStringLiteral("All set"));
        QCOMPARE(user.text("permissionStatus"),
                 QStringLiteral("Panorel can see and move your windows."));
        QCOMPARE(user.offered().join(u'|'), readyPage);
    }

    void whatCannotBeDoneIsNotOffered()
    {
        NewUser user;
        user.actions = {};
        user.startProgram();
        user.click("Continue");
        user.click("Continue");
        QCOMPARE(user.offered().join(u'|'), QStringLiteral("Back|Done"));
    }

    void screenshots_data()
    {
        QTest::addColumn<bool>("isTrusted");
        for (const char *name : {"light", "dark", "german", "german-large", "dark-200"})
            QTest::newRow(name) << true;
        QTest::newRow("missing") << false;
        QTest::newRow("missing-german-large") << false;
    }

    /// Nothing is cut: the window is as high as its texts, in every language and font.
    void screenshots()
    {
        QFETCH(bool, isTrusted);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        const QFont usual = QApplication::font();
        if (name.contains(u"german"))
            installTranslations(*qApp, {QStringLiteral("de")});
        if (name.contains(u"large")) {
            QFont font = usual;
            font.setPointSizeF(usual.pointSizeF() * 1.5);
            QApplication::setFont(font);
        }
        const bool isDark = name.contains(u"dark");
        QPalette palette(isDark ? QColor(0xf1f2f4) : QColor(0x1d1f23),
                         isDark ? QColor(0x26282c) : QColor(0xfafafb));
        palette.setColor(QPalette::WindowText, palette.color(QPalette::ButtonText));
        palette.setColor(QPalette::Window, isDark ? QColor(0x26282c) : QColor(0xfafafb));
        palette.setColor(QPalette::Highlight, QColor(0x3584e4));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        QApplication::setPalette(palette);
        NewUser user;
        user.platform.desktop.trustIsGranted = false;
        user.platform.desktop.trusted = isTrusted;
        for (int page = 0; page < 3; ++page) {
            QCoreApplication::processEvents();
            QVERIFY(user.window().size() == user.window().sizeHint());
            for (const QLabel *label : user.window().findChildren<QLabel *>()) {
                const QRect place(label->mapTo(&user.window(), QPoint()), label->size());
                if (label->isVisible())
                    QVERIFY2(user.window().rect().contains(place), qPrintable(label->text()));
                if (label->isVisible() && label->hasHeightForWidth())
                    QVERIFY2(label->height() >= label->heightForWidth(label->width()),
                             qPrintable(label->text()));
            }
            save(user.window(), QStringLiteral("onboarding-%1-%2").arg(page + 1).arg(name));
            if (page == 2 && isTrusted) {
                auto *row = user.window().findChild<ActionControl *>(QStringLiteral("saveScene"));
                QTest::mouseClick(row, Qt::LeftButton);
                save(user.window(), QStringLiteral("onboarding-4-%1").arg(name));
            }
            user.press(Qt::Key_Return);
        }
        QApplication::setFont(usual);
        qDeleteAll(qApp->findChildren<QTranslator *>());
    }

private:
    static void save(QWidget &window, const QString &name)
    {
        QCoreApplication::processEvents();
        const double scale = name.endsWith(u"200") ? 2 : 1;
        QImage picture(window.size() * scale, QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(scale);
        window.render(&picture);
        const QDir folder(QStringLiteral(PANOREL_SCREENSHOTS));
        QVERIFY(folder.mkpath(QStringLiteral(".")));
        QVERIFY(picture.save(folder.filePath(name + QStringLiteral(".png"))));
    }
};

QTEST_MAIN(OnboardingTests)
#include "OnboardingTests.moc"
