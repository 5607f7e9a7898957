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
            QCOMPARE(view.focused(), expected.first()); // and round again
        }
        view.press(Qt::Key_Up);
        QCOMPARE(view.focused(), expected.last());
        QCOMPARE(view.shown<ActionControl>().size(), expected.size());
        for (ActionControl *control : view.shown<ActionControl>())
            QVERIFY(control->height() >= 28);

        expected.removeOne(QStringLiteral("Close tip"));
        for (const QString &title : expected) {
            panel.open();
            panel.view().click(qUtf8Printable(title));
        }
        panel.pressed.removeAll(QStringLiteral("opening"));
        QCOMPARE(panel.pressed, expected);
    }

    void keysReachWhatTheyShow()
    {
        const std::pair<QKeyCombination, const char *> keysAndActions[] = {
            {Qt::Key_Return, "Restore Now"},
            {Qt::Key_Enter, "Restore Now"},
            {Qt::Key_Space, "Restore Now"},
            {Qt::CTRL | Qt::Key_L, "Layouts…"},
            {Qt::CTRL | Qt::Key_Comma, "Settings…"},
            {Qt::CTRL | Qt::Key_Q, "Quit Panorel"},
            {Qt::Key_Escape, ""}};
        for (const auto &[keys, action] : keysAndActions) {
            Panel panel;
            panel.open();
            QTRY_COMPARE(panel.view().focused(), QStringLiteral("Restore Now"));
            panel.pressed.clear();
            panel.view().press(keys.key(), keys.keyboardModifiers());
            const QString did = QString::fromUtf8(action);
            QTRY_COMPARE(panel.pressed.join(u' '), did);
            QTRY_COMPARE(panel.controller.isOpen(), did == u"Restore Now");
        }
    }

    void aRowWithoutActionIsNotOffered()
    {
        Panel panel;
        panel.model.setCanUndo(true);
        for (const auto &[action, title] : actions) {
            if (action != &PanelModel::onRestoreNow && action != &PanelModel::onQuit)
                panel.model.*action = {};
        }
        panel.model.onApplyScene = {};
        panel.open();
        QCOMPARE(panel.view().titles(), QStringLiteral("Restore Now|Quit Panorel"));
    }

    void theTextsSayHowThingsStand()
    {
        Panel panel;
        panel.open();
        QCOMPARE(panel.text("deskName"), QStringLiteral("Office"));
        QCOMPARE(panel.text("displayNames"), QStringLiteral("Built-in Display + U2720Q"));
        panel.model.setDisplays({});
        QCOMPARE(panel.text("displayNames"), QStringLiteral("No displays detected"));

        const std::tuple<int, bool, const char *> statuses[] = {{12, true, "12 windows remembered"},
                                                                {12, false, "Panorel is off"},
                                                                {1, true, "1 windows remembered"},
                                                                {0, true, "No layout saved yet"}};
        for (const auto &[windows, isOn, text] : statuses) {
            panel.model.setWindowCount(windows);
            panel.prefs.setEnabled(isOn);
            QCOMPARE(panel.text("status"), QString::fromLatin1(text));
        }
        QCOMPARE(panel.text("lastAction"), QString());
        panel.model.setLastAction(QStringLiteral("Put back 12 windows"));
        QCOMPARE(panel.text("lastAction"), QStringLiteral("Put back 12 windows"));
        QVERIFY(!panel.offers("Undo"));
        panel.model.setCanUndo(true);
        panel.model.setIsStashed(true);
        QVERIFY(panel.offers("Undo") && panel.offers("Bring the desk back"));
    }

    void thePermissionTakesThePlaceOfRestoreNow()
    {
        Panel panel;
        panel.model.setHasPermission(false);
        panel.open();
        QCOMPARE(panel.text("permission"),
                 QStringLiteral("Panorel needs Accessibility permission to move windows."));
        QVERIFY(!panel.offers("Restore Now"));
        panel.view().click("Grant permission…");
        QCOMPARE(panel.pressed.last(), QStringLiteral("Grant permission…"));
        panel.model.setIsPermissionGrantedByUser(false); // but by a window manager
        QCOMPARE(panel.text("permission"),
                 QStringLiteral("No window can be moved, as no window manager is running."));
        QVERIFY(!panel.offers("Grant permission…") && !panel.offers("Restore Now"));
        panel.model.setHasPermission(true);
        QCOMPARE(panel.text("permission"), QString());
        QVERIFY(panel.offers("Restore Now"));
    }

    void theTipStaysClosed()
    {
        Panel panel;
        panel.open();
        panel.view().click("Close tip");
        QVERIFY(panel.prefs.tipDismissed() && !panel.offers("Set one"));
        panel.open();
        QVERIFY(!panel.offers("Set one"));
    }

    void scenesComeAndGoWhileOneIsPressed()
    {
        Panel panel;
        const HotKeyCombo key{18, HotKeyCombo::command};
        panel.model.setScenes({scene("Writing", key)});
        panel.model.onApplyScene = [&](const QUuid &) { panel.model.setScenes({scene("Other")}); };
        panel.open();
        ActionControl *row = panel.view().find("Writing");
        QCOMPARE(row->accessibleDescription(), QStringLiteral("Super+1"));
        QTest::mouseClick(row, Qt::LeftButton);
        QVERIFY(!panel.offers("Writing"));
        QTRY_VERIFY(panel.offers("Other"));
    }

    void aSceneThatWasJustSavedOffersAKey()
    {
        Panel panel;
        panel.model.setScenes({scene("Writing")});
        panel.model.onSaveScene = [&] {
            panel.model.setLastAction(QStringLiteral("Scene saved"));
            panel.model.setScenes({scene("Writing"), scene("New")});
        };
        panel.open();
        QVERIFY(!panel.offers("Set key")); // those that were there have had their chance
        const ViewProbe view = panel.view();
        view.click("Save current as scene");
        QTRY_VERIFY(panel.offers("Set key"));
        ActionControl *offer = view.find("Set key");
        QCOMPARE(offer->accessibleDescription(), QStringLiteral("New"));
        view.find("New")->setFocus(Qt::TabFocusReason);
        view.press(Qt::Key_Down);
        QVERIFY(offer->hasFocus());
        view.press(Qt::Key_Return);
        QCOMPARE(panel.pressed.last(), QStringLiteral("Set one")); // the same place
        QTRY_VERIFY(!panel.controller.isOpen());
        panel.open();
        QVERIFY(!panel.offers("Set key"));
    }

    void thePanelOpensAnewEachTime()
    {
        Panel panel;
        QPointer<PanelWindow> first = &panel.open(PanelController::Keyboard::Leave);
        QCOMPARE(panel.pressed, QStringList{QStringLiteral("opening")});
        QVERIFY(first->testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(first->windowFlags().testFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint));
        QCOMPARE(panel.platform.onAllDesktops.size(), 1u);
        panel.controller.toggle({});
        QVERIFY(!panel.controller.isOpen());
        QTRY_VERIFY(!first);
        panel.controller.toggle({});
        QCOMPARE(panel.pressed.size(), 2);
    }

    void aPanelHigherThanTheScreenScrolls()
    {
        Panel panel;
        std::vector<SceneRecord> many;
        for (int i = 0; i < 60; ++i)
            many.push_back(scene(QByteArray::number(i).constData()));
        panel.model.setScenes(many);
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
        std::optional<StatusItemController> controller;
        controller.emplace(panel.model, panel.controller, panel.platform.shell(), &button,
                           [](const QPoint &) { return QRect(0, 25, 1920, 1055); });
        QVERIFY(button.isShown());
        QCOMPARE(button.toolTip, QStringLiteral("Panorel: Office"));
        panel.model.setDeskName(QStringLiteral("Home"));
        QTRY_COMPARE(button.toolTip, QStringLiteral("Panorel: Home"));

        button.frame = Rect{900.5, 0, 24, 24.5};
        button.press();
        QVERIFY(panel.controller.isOpen());
        // The window as it was asked for: centred below the button, rounded outwards.
        const QRect place = panel.controller.window()->geometry();
        QCOMPARE(place.top(), 25 + 6);
        QVERIFY(std::abs(place.center().x() - 912) <= 1);
        button.press();
        QVERIFY(!panel.controller.isOpen());

        button.frame.reset(); // no screen: the panel shows all the same
        button.press();
        QVERIFY(panel.controller.isOpen());
        controller.reset();
        QVERIFY(!button.isShown());
    }

    void thePanelOpensOnTheInnerSideOfTheBar()
    {
        const QRect belowBar(0, 24, 1920, 1056);
        const QRect aboveBar(0, 0, 1920, 1050);
        const QRect rightOfBar(48, 0, 1872, 1080);
        const QRect leftOfBar(0, 0, 1872, 1080);
        const QRect whole(0, 0, 1920, 1080);
        const QRect left(-1920, -1056, 1920, 1056);
        const QRect low(0, 24, 1920, 300);
        const struct {
            const char *name;
            PanelAnchor anchor;
            QRect expected; // of a panel of 320 x 400
        } rows[] = {
            {"centred below it", {QRect(900, 0, 30, 24), belowBar, {}}, {755, 30, 320, 400}},
            {"near the right edge", {QRect(1880, 0, 24, 24), belowBar, {}}, {1592, 30, 320, 400}},
            {"a step before it", {QRect(1739, 0, 24, 24), belowBar, {}}, {1591, 30, 320, 400}},
            {"near the left edge", {QRect(0, 0, 24, 24), belowBar, {}}, {8, 30, 320, 400}},
            {"smaller than its bar", {QRect(900, 4, 30, 16), belowBar, {}}, {755, 30, 320, 400}},
            {"a bar without space", {QRect(900, 0, 30, 24), whole, {}}, {755, 30, 320, 400}},
            {"at the bottom", {QRect(900, 1052, 30, 24), aboveBar, {}}, {755, 644, 320, 400}},
            {"there, no space", {QRect(1896, 1056, 24, 24), whole, {}}, {1592, 650, 320, 400}},
            {"at the left", {QRect(4, 1040, 40, 30), rightOfBar, {}}, {54, 672, 320, 400}},
            {"at the right", {QRect(1876, 10, 40, 30), leftOfBar, {}}, {1546, 8, 320, 400}},
            {"left of the first", {QRect(-60, -1080, 24, 24), left, {}}, {-328, -1050, 320, 400}},
            {"higher than the screen", {QRect(900, 0, 30, 24), low, {}}, {755, 30, 320, 284}},
            {"pointer in a bar above", {{}, belowBar, QPoint(1900, 12)}, {1592, 32, 320, 400}},
            {"pointer in a bar below", {{}, aboveBar, QPoint(220, 1065)}, {60, 642, 320, 400}},
            {"pointer far from edges", {{}, belowBar, QPoint(900, 700)}, {740, 672, 320, 400}},
            {"neither button nor pointer", {{}, belowBar, {}}, {1592, 32, 320, 400}},
            {"smaller than the panel", {{}, QRect(0, 0, 200, 100), {}}, {8, 8, 320, 84}}};
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
        QCOMPARE(visible({5760, 0, 800, 600}), QRect(5760, 0, 800, 600)); // not read yet
    }

    void allOfItShows()
    {
        const HotKeyCombo key{18, HotKeyCombo::command};
        const std::pair<const char *, std::function<void(Panel &)>> acts[] = {
            {"usual", [](Panel &) {}},
            {"scenes",
             [=](Panel &panel) {
                 panel.model.setScenes(
                     {scene("Writing", key), scene("Review & release"),
                      scene("Präsentation für den Aufsichtsrat im großen Sitzungssaal", key)});
                 panel.model.setLastAction(QStringLiteral("Put back 11 of 12 windows"));
                 panel.model.setCanUndo(true);
                 panel.prefs.setTipDismissed(true);
             }},
            {"saved",
             [=](Panel &panel) {
                 panel.model.onSaveScene = [&] {
                     panel.model.setScenes({scene("Writing", key), scene("Scene 2")});
                 };
                 const QString save =
                     QCoreApplication::translate("Panorel::SceneList", "Save current as scene");
                 panel.view().click(qUtf8Printable(save));
             }},
            {"no-window-manager",
             [](Panel &panel) {
                 panel.model.setHasPermission(false);
                 panel.model.setIsPermissionGrantedByUser(false);
             }},
            {"off", [](Panel &panel) { panel.prefs.setEnabled(false); }}};
        for (const char *language : {"en", "de"}) {
            installTranslations(*qApp, {QLatin1String(language)});
            for (const auto &[name, act] : acts) {
                Panel panel;
                PanelWindow &window = panel.open();
                act(panel); // while it is open: all of it is followed at once
                const auto *result = window.findChild<QLabel *>(QStringLiteral("lastAction"));
                panel.view().photograph("panel-" + QByteArray(name) + '-' + language, [&] {
                    const bool isFadedIn = !result->graphicsEffect();
                    return isFadedIn && window.size() == window.sizeHint()
                           && panel.view().shown<QScrollBar>().isEmpty();
                });
            }
        }
    }

    void cleanup() { qDeleteAll(qApp->findChildren<QTranslator *>()); }
};

QTEST_MAIN(PanelTests)
#include "PanelTests.moc"
