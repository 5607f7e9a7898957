#include "Panorel/Panel/PanelController.h"
#include "Panorel/Panel/PanelPosition.h"
#include "Panorel/Panel/PanelWindow.h"
#include "Panorel/Panel/VisibleFrame.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/Records.h"
#include "Panorel/StatusItemController.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "Panorel/ViewProbe.h"
#include "Support/InMemoryPlatform.h"

#include <QPointer>
#include <QScrollBar>
#include <QTranslator>

using namespace Panorel;

namespace {

/// What the panel offers beside scenes, as it names it.
const std::pair<PanelModel::Action PanelModel::*, const char *> actions[] = {
    {&PanelModel::onRestoreNow, "Restore Now"},
    {&PanelModel::onUndo, "Undo"},
    {&PanelModel::onStash, "Stash the desk"},
    {&PanelModel::onSaveScene, "Save current as scene"},
    {&PanelModel::onOpenLayouts, "Layouts…"},
    {&PanelModel::onOpenSettings, "Settings…"},
    {&PanelModel::onOpenShortcuts, "Set one"},
    {&PanelModel::onCheckForUpdates, "Check for Updates…"},
    {&PanelModel::onGrantPermission, "Grant permission…"},
    {&PanelModel::onQuit, "Quit Panorel"},
    {&PanelModel::onOpening, "opening"}};

/// The panel of a desk with two displays; what is pressed is written down.
struct Panel {
    InMemoryPlatform platform;
    Prefs prefs{platform.defaults, platform.activationPolicy(), platform.loginItem()};
    PanelModel model;
    QStringList pressed;
    PanelController controller{model, prefs, platform.shell(),
                               [](const HotKeyCombo &combo) { return combo.pcString(); }};

    Panel()
    {
        for (const auto &[action, title] : actions)
            model.*action = [this, text = QString::fromUtf8(title)] { pressed << text; };
        model.onApplyScene = [this](const QUuid &id) {
            pressed << std::ranges::find(model.scenes(), id, &SceneRecord::id)->name;
        };
        model.setHasPermission(true);
        model.setDeskName(QStringLiteral("Office"));
        model.setWindowCount(12);
        model.setDisplays({display("Built-in Display", {0, 360, 1440, 900}),
                           display("U2720Q", {1440, 0, 2560, 1440})});
    }
    PanelWindow &open(PanelController::Keyboard keyboard = PanelController::Keyboard::Take)
    {
        controller.open({QRect(900, 0, 24, 24), QRect(0, 24, 1920, 1056), {}}, keyboard);
        if (!QTest::qWaitForWindowExposed(controller.window()))
            qFatal("the panel does not show");
        ViewProbe::settle();
        return *controller.window();
    }
    ViewProbe view() { return {*controller.window()}; }
    bool offers(const char *title) { return view().find(title); }
    QString text(const char *name) { return view().text(name); }
};

} // namespace

class PanelTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everythingCanBePressedInOrder()
    {
        Panel panel;
        panel.model.setScenes({scene("Writing"), scene("R&D")});
        panel.model.setCanUndo(true);
        panel.open();
        const ViewProbe view = panel.view();
        QStringList expected = QStringLiteral("Restore Now|Undo|Set one|Close tip|Stash the desk|"
                                              "Writing|R&D|Save current as scene|Layouts…|"
                                              "Settings…|Check for Updates…|Quit Panorel")
                                   .split(u'|');
        QTRY_COMPARE(view.focused(), expected.first());
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down}) {
            QStringList visited;
            for (qsizetype i = 0; i < expected.size(); ++i) {
                visited << view.focused();
                view.press(key);
            }
            QCOMPARE(visited, expected);
        }
        view.press(Qt::Key_Up); // the other way round
        QCOMPARE(view.focused(), expected.last());

        expected.removeOne(QStringLiteral("Close tip"));
        for (const QString &title : expected) {
            panel.open();
            panel.view().click(qUtf8Printable(title));
        }
        panel.pressed.removeAll(QStringLiteral("opening"));
        QCOMPARE(panel.pressed, expected);
    }

    void theTextsSayHowThingsStand()
    {
        Panel panel;
        panel.open();
        panel.prefs.setEnabled(false);
        QCOMPARE(panel.text("status"), QStringLiteral("Panorel is off"));
        panel.model.setIsStashed(true);
        QVERIFY(!panel.offers("Undo") && panel.offers("Bring the desk back"));
        panel.model.setHasPermission(false);
        QVERIFY(panel.offers("Grant permission…") && !panel.offers("Restore Now"));
        panel.model.setIsPermissionGrantedByUser(false); // but by a window manager
        QVERIFY(!panel.offers("Grant permission…") && !panel.offers("Restore Now"));
    }

    void scenesComeAndGoWhileOneIsPressed()
    {
        Panel panel;
        panel.model.setScenes({scene("Writing")});
        panel.model.onApplyScene = [&](const QUuid &) { panel.model.setScenes({scene("Other")}); };
        panel.open();
        panel.view().click("Writing");
        QVERIFY(!panel.offers("Writing"));
        QTRY_VERIFY(panel.offers("Other"));
    }

    void thePanelOpensAnewEachTime()
    {
        Panel panel;
        QPointer<PanelWindow> first = &panel.open(PanelController::Keyboard::Leave);
        QVERIFY(first->testAttribute(Qt::WA_ShowWithoutActivating));
        QCOMPARE(panel.platform.onAllDesktops.size(), 1u);
        panel.view().click("Close tip");
        panel.controller.toggle({});
        QVERIFY(!panel.controller.isOpen());
        QTRY_VERIFY(!first);
        panel.open();
        QCOMPARE(panel.pressed.size(), 2); // twice "opening"
        QVERIFY(panel.prefs.tipDismissed() && !panel.offers("Set one"));
        QTRY_COMPARE(panel.view().focused(), QStringLiteral("Restore Now"));
        panel.view().press(Qt::Key_Escape);
        QTRY_VERIFY(!panel.controller.isOpen());
    }

    void aPanelHigherThanTheScreenScrolls()
    {
        Panel panel;
        panel.model.setScenes(std::vector(60, scene("many")));
        PanelWindow &window = panel.open();
        QTRY_COMPARE(window.height(), 1056 - 16);
        panel.view().find("Quit Panorel")->setFocus(Qt::TabFocusReason);
        panel.view().press(Qt::Key_Up); // focusing by keyboard scrolls there
        const ActionControl *near = panel.view().find("Check for Updates…");
        QTRY_VERIFY(window.rect().contains(near->mapTo(&window, near->rect().center())));
    }

    void theMenuBarsButtonOpensThePanelBelowItAndClosesIt()
    {
        Panel panel;
        InMemoryStatusItem &button = panel.platform.menuBarItem;
        const StatusItemController controller(
            panel.model, panel.controller, panel.platform.shell(), &button,
            [](const QPoint &) { return QRect(0, 25, 1920, 1055); });
        button.frame = Rect{900.5, 0, 24, 24.5};
        button.press();
        // The window as it was asked for: centred below the button, rounded outwards.
        const QRect place = panel.controller.window()->geometry();
        QCOMPARE(place.top(), 25 + 6);
        QVERIFY(std::abs(place.center().x() - 912) <= 1);
        button.press();
        QVERIFY(!panel.controller.isOpen());
        button.frame.reset(); // no screen: the panel shows all the same
        button.press();
        QVERIFY(panel.controller.isOpen());
    }

    void thePanelOpensOnTheInnerSideOfTheBar()
    {
        const QRect belowBar(0, 24, 1920, 1056);
        const QRect aboveBar(0, 0, 1920, 1050);
        const QRect rightOfBar(48, 0, 1872, 1080);
        const QRect left(-1920, -1056, 1920, 1056);
        const struct {
            const char *name;
            PanelAnchor anchor;
            QRect expected; // of a panel of 320 x 400
        } rows[] = {
            {"centred below it", {QRect(900, 0, 30, 24), belowBar, {}}, {755, 30, 320, 400}},
            {"at the bottom", {QRect(900, 1052, 30, 24), aboveBar, {}}, {755, 644, 320, 400}},
            {"at the left", {QRect(4, 1040, 40, 30), rightOfBar, {}}, {54, 672, 320, 400}},
            {"left of the first", {QRect(-60, -1080, 24, 24), left, {}}, {-328, -1050, 320, 400}},
            {"pointer in a bar above", {{}, belowBar, QPoint(1900, 12)}, {1592, 32, 320, 400}},
            {"neither button nor pointer", {{}, belowBar, {}}, {1592, 32, 320, 400}}};
        for (const auto &[name, anchor, expected] : rows)
            QVERIFY2(panelFrame(anchor, {320, 400}) == expected, name);
    }

    void theVisibleFrameIsInQtsUnits()
    {
        const auto visible = [](const QRect &screen) {
            return visibleFrameOf(
                screen, {display("1", {0, 0, 1920, 1080}, Rect{0, 32, 1920, 1048}),
                         // drawn at twice the size
                         display("2", {1920, 0, 3840, 2160}, Rect{1920, 40, 3840, 2120})});
        };
        QCOMPARE(visible({0, 0, 1920, 1080}), QRect(0, 32, 1920, 1048));
        QCOMPARE(visible({1920, 0, 1920, 1080}), QRect(1920, 20, 1920, 1060));
    }

    void allOfItShows()
    {
        installTranslations(*qApp, {QStringLiteral("de")}); // the longest texts
        Panel panel;
        PanelWindow &window = panel.open(); // while it is open: all of it is followed at once
        panel.model.setScenes({scene("Präsentation für den Aufsichtsrat im großen Sitzungssaal",
                                     HotKeyCombo{18, HotKeyCombo::command})});
        panel.model.setLastAction(QStringLiteral("Put back 11 of 12 windows"));
        panel.model.setCanUndo(true);
        panel.view().photograph("panel", [&] {
            const auto *result = window.findChild<QLabel *>(QStringLiteral("lastAction"));
            const bool isFadedIn = !result->graphicsEffect();
            return isFadedIn && window.size() == window.sizeHint()
                   && panel.view().shown<QScrollBar>().isEmpty();
        });
    }

    void cleanup() { qDeleteAll(qApp->findChildren<QTranslator *>()); }
};

QTEST_MAIN(PanelTests)
#include "PanelTests.moc"
