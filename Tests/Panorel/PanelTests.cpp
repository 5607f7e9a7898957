#include "Panorel/Panel/PanelController.h"
#include "Panorel/Panel/PanelWindow.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/Translations/InterfaceLanguage.h"
#include "Panorel/UI/ActionControl.h"
#include "Support/InMemoryPlatform.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QTranslator>

using namespace Panorel;

namespace {

QPalette paletteOf(const QColor &window, const QColor &text)
{
    QPalette palette(text, window, window.lighter(), window.darker(), window, text, window);
    palette.setColor(QPalette::Highlight, QColor(0x3584e4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

DisplayInfo display(const char *name, const Rect &frame, bool isBuiltin = false)
{
    DisplayInfo info;
    info.uuid = info.edidUUID = info.name = QString::fromUtf8(name);
    info.isBuiltin = isBuiltin;
    info.frame = info.visibleFrame = frame;
    return info;
}

SceneRecord scene(const char *name, const std::optional<HotKeyCombo> &key = {})
{
    SceneRecord record;
    record.name = QString::fromUtf8(name);
    record.id = QUuid::createUuidV5(QUuid(), record.name);
    record.hotKey = key;
    return record;
}

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
        model.setDisplays({display("Built-in Display", {0, 360, 1440, 900}, true),
                           display("U2720Q", {1440, 0, 2560, 1440})});
    }
    PanelWindow &open(PanelController::Keyboard keyboard = PanelController::Keyboard::Take)
    {
        controller.open({QRect(900, 0, 24, 24), QRect(0, 24, 1920, 1056), {}}, keyboard);
        if (!QTest::qWaitForWindowExposed(controller.window()))
            qFatal("the panel does not show");
        return *controller.window();
    }
    QList<ActionControl *> shown()
    {
        auto controls = controller.window()->findChildren<ActionControl *>();
        controls.removeIf([](const ActionControl *control) { return !control->isVisible(); });
        return controls;
    }
    QStringList titles()
    {
        QStringList result;
        for (const ActionControl *control : shown())
            result << control->title();
        return result;
    }
    void click(const QString &title) { QTest::mouseClick(&control(title), Qt::LeftButton); }
    ActionControl &control(const QString &title)
    {
        for (ActionControl *one : shown()) {
            if (one->title() == title)
                return *one;
        }
        qFatal("no control %s", qPrintable(title));
    }
    bool offers(const char *title) { return titles().contains(QString::fromUtf8(title)); }
    QString focused()
    {
        const QWidget *widget = controller.window()->focusWidget();
        return widget ? widget->accessibleName() : QString();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *widget = controller.window()->focusWidget();
        QTest::keyClick(widget ? widget : controller.window(), key, modifiers);
    }
    /// Of a label or status line; empty where it does not show.
    QString text(const char *name)
    {
        auto *found = controller.window()->findChild<QWidget *>(QString::fromLatin1(name));
        if (!found->isVisible())
            return {};
        auto *label = qobject_cast<QLabel *>(found);
        return label ? label->text() : found->findChild<QLabel *>()->text();
    }
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
        QStringList expected = QStringLiteral("Restore Now|Undo|Set one|Close tip|Stash the desk|"
                                              "Writing|R&D|Save current as scene|Layouts…|"
                                              "Settings…|Check for Updates…|Quit Panorel")
                                   .split(u'|');
        QTRY_COMPARE(panel.focused(), expected.first());
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Down}) {
            QStringList visited;
            for (qsizetype i = 0; i < expected.size(); ++i) {
                visited << panel.focused();
                panel.press(key);
            }
            QCOMPARE(visited, expected);
            QCOMPARE(panel.focused(), expected.first()); // and round again
        }
        panel.press(Qt::Key_Up);
        QCOMPARE(panel.focused(), expected.last());
        QCOMPARE(panel.shown().size(), expected.size());
        for (ActionControl *control : panel.shown()) {
            QVERIFY(control->height() >= 28);
            const QString name =
                QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
            QVERIFY2(expected.contains(name), qPrintable(name));
        }

        expected.removeOne(QStringLiteral("Close tip"));
        for (const QString &title : expected) {
            panel.open();
            panel.click(title);
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
            QTRY_COMPARE(panel.focused(), QStringLiteral("Restore Now"));
            panel.pressed.clear();
            panel.press(keys.key(), keys.keyboardModifiers());
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
        QCOMPARE(panel.titles(),
                 QStringList({QStringLiteral("Restore Now"), QStringLiteral("Quit Panorel")}));
    }

    void theTextsSayHowThingsStand()
    {
        Panel panel;
        panel.open();
        QCOMPARE(panel.text("deskName"), QStringLiteral("Office"));
        QCOMPARE(panel.text("displayNames"), QStringLiteral("Built-in Display + U2720Q"));
        panel.model.setDisplays({});
        QCOMPARE(panel.text("displayNames"), QStringLiteral("No displays detected"));

        QCOMPARE(panel.text("status"), QStringLiteral("12 windows remembered"));
        panel.prefs.setEnabled(false);
        QCOMPARE(panel.text("status"), QStringLiteral("Panorel is off"));
        panel.prefs.setEnabled(true);
        panel.model.setWindowCount(1);
        QCOMPARE(panel.text("status"), QStringLiteral("1 windows remembered"));
        panel.model.setWindowCount(0);
        QCOMPARE(panel.text("status"), QStringLiteral("No layout saved yet"));

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
        panel.click(QStringLiteral("Grant permission…"));
        QCOMPARE(panel.pressed.last(), QStringLiteral("Grant permission…"));
        panel.model.setHasPermission(true);
        QCOMPARE(panel.text("permission"), QString());
        QVERIFY(panel.offers("Restore Now"));
    }

    void withoutAWindowManagerNoPermissionIsAskedFor()
    {
        Panel panel;
        panel.model.setHasPermission(false);
        panel.open();
        panel.model.setIsPermissionGrantedByUser(false);
        QCOMPARE(panel.text("permission"),
                 QStringLiteral("No window can be moved, as no window manager is running."));
        QVERIFY(!panel.offers("Grant permission…") && !panel.offers("Restore Now"));
    }

    void theTipStaysClosed()
    {
        Panel panel;
        panel.open();
        panel.click(QStringLiteral("Close tip"));
        QVERIFY(panel.prefs.tipDismissed());
        QVERIFY(!panel.offers("Set one"));
        panel.controller.close();
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
        ActionControl &row = panel.control(QStringLiteral("Writing"));
        QCOMPARE(row.accessibleDescription(), QStringLiteral("Super+1"));
        QTest::mouseClick(&row, Qt::LeftButton);
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
        panel.click(QStringLiteral("Save current as scene"));
        QTRY_VERIFY(panel.offers("Set key"));
        const ActionControl &offer = panel.control(QStringLiteral("Set key"));
        QCOMPARE(offer.accessibleDescription(), QStringLiteral("New"));
        QVERIFY(offer.height() >= 28);
        panel.control(QStringLiteral("New")).setFocus(Qt::TabFocusReason);
        for (const char *next : {"Set key", "Save current as scene"}) {
            panel.press(Qt::Key_Down);
            QCOMPARE(panel.focused(), QString::fromLatin1(next));
        }
        panel.press(Qt::Key_Up);
        panel.press(Qt::Key_Return);
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
        panel.control(QStringLiteral("Quit Panorel")).setFocus(Qt::TabFocusReason);
        panel.press(Qt::Key_Up); // focusing by keyboard scrolls there
        const ActionControl &near = panel.control(QStringLiteral("Check for Updates…"));
        QTRY_VERIFY(window.rect().contains(near.mapTo(&window, near.rect().center())));
    }

    /// A name says what else the picture is: dark, or at 200 %.
    void screenshots_data()
    {
        using Act = std::function<void(Panel &)>;
        QTest::addColumn<Act>("act");
        const Act asItIs = [](Panel &) {};
        const Act furnish = [](Panel &panel) {
            panel.model.setScenes(
                {scene("Writing", HotKeyCombo{18, HotKeyCombo::command}), scene("Review & release"),
                 scene("Präsentation für den Aufsichtsrat im großen Sitzungssaal",
                       HotKeyCombo{19, HotKeyCombo::command | HotKeyCombo::shift})});
            panel.model.setLastAction(QStringLiteral("Put back 11 of 12 windows"));
            panel.model.setCanUndo(true);
            panel.prefs.setTipDismissed(true);
        };
        const Act saveScene = [](Panel &panel) {
            panel.prefs.setTipDismissed(true);
            panel.model.onSaveScene = [&panel] {
                panel.model.setLastAction(QStringLiteral("Scene saved"));
                panel.model.setScenes(
                    {scene("Writing", HotKeyCombo{18, HotKeyCombo::command}), scene("Scene 2")});
            };
            panel.click(QCoreApplication::translate("Panorel::SceneList", "Save current as scene"));
        };
        const Act withdraw = [](Panel &panel) { panel.model.setHasPermission(false); };
        QTest::newRow("light") << asItIs;
        QTest::newRow("dark") << asItIs;
        for (const char *name : {"scenes-light", "scenes-dark", "scenes-200", "scenes-dark-200",
                                 "scenes-german", "scenes-german-large"})
            QTest::newRow(name) << furnish;
        QTest::newRow("saved") << saveScene;
        QTest::newRow("saved-german-dark") << saveScene;
        QTest::newRow("no-permission") << withdraw;
        for (const char *name : {"no-window-manager", "no-window-manager-german"})
            QTest::newRow(name) << Act([](Panel &panel) {
                panel.model.setHasPermission(false);
                panel.model.setIsPermissionGrantedByUser(false);
            });
        QTest::newRow("no-permission-dark") << withdraw;
        QTest::newRow("german") << asItIs;
        QTest::newRow("no-permission-german") << withdraw;
        QTest::newRow("off") << Act([](Panel &panel) { panel.prefs.setEnabled(false); });
    }

    void screenshots()
    {
        QFETCH(std::function<void(Panel &)>, act);
        const QString name = QString::fromLatin1(QTest::currentDataTag());
        if (name.contains(u"german"))
            installTranslations(*qApp, {QStringLiteral("de")});
        const QFont usual = QApplication::font();
        QFont font = usual;
        font.setPointSizeF(usual.pointSizeF() * (name.contains(u"large") ? 1.5 : 1));
        QApplication::setFont(font);
        Panel panel;
        PanelWindow &window = panel.open();
        act(panel); // while it is open: all of it is followed at once
        QApplication::setPalette(name.contains(u"dark") ? paletteOf(0x26282c, 0xf1f2f4)
                                                        : paletteOf(0xfafafb, 0x1d1f23));
        QCoreApplication::processEvents();
        auto *result = window.findChild<QLabel *>(QStringLiteral("lastAction"));
        QTRY_VERIFY(!result->graphicsEffect()); // faded in
        QTRY_COMPARE(window.size(), window.sizeHint());
        for (const QScrollBar *bar : window.findChildren<QScrollBar *>())
            QVERIFY(!bar->isVisible()); // all of it can be seen

        const double scale = name.endsWith(u"200") ? 2 : 1;
        QImage picture(window.size() * scale, QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        window.render(&picture);
        const QDir folder(QStringLiteral(PANOREL_SCREENSHOTS));
        QVERIFY(folder.mkpath(QStringLiteral(".")));
        QVERIFY(picture.save(folder.filePath(QStringLiteral("panel-%1.png").arg(name))));
        QApplication::setFont(usual);
        qDeleteAll(qApp->findChildren<QTranslator *>());
    }
};

QTEST_MAIN(PanelTests)
#include "PanelTests.moc"
