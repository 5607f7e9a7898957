#include "Panorel/Panel/PanelController.h"
#include "Panorel/Panel/PanelWindow.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/UI/ActionControl.h"
#include "Support/InMemoryPlatform.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QTest>

using namespace Panorel;

namespace {

QPalette paletteOf(const QColor &window, const QColor &text, const QColor &highlight,
                   const QColor &highlightedText = Qt::white)
{
    QPalette palette(text, window, window.lighter(), window.darker(), window, text, window);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlightedText);
    return palette;
}

const QPalette lightPalette = paletteOf(QColor(0xfafafb), QColor(0x1d1f23), QColor(0x3584e4));
const QPalette darkPalette = paletteOf(QColor(0x26282c), QColor(0xf1f2f4), QColor(0x3584e4));

DisplayInfo display(const char *name, const Rect &frame, bool isBuiltin = false)
{
    DisplayInfo info;
    info.uuid = info.edidUUID = info.name = QString::fromUtf8(name);
    info.isBuiltin = isBuiltin;
    info.frame = info.visibleFrame = frame;
    return info;
}

SceneRecord scene(const QString &name, const std::optional<HotKeyCombo> &key = {})
{
    SceneRecord record;
    record.id = QUuid::createUuidV5(QUuid(), name);
    record.name = name;
    record.hotKey = key;
    return record;
}

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
        model.onRestoreNow = note("restore");
        model.onUndo = note("undo");
        model.onStash = note("stash");
        model.onApplyScene = [this](const QUuid &id) { pressed << id.toString(); };
        model.onSaveScene = note("save");
        model.onOpenLayouts = note("layouts");
        model.onOpenSettings = note("settings");
        model.onOpenShortcuts = note("shortcuts");
        model.onCheckForUpdates = note("updates");
        model.onGrantPermission = note("grant");
        model.onQuit = note("quit");
        model.onOpening = note("opening");
        model.setHasPermission(true);
        model.setDeskName(QStringLiteral("Office"));
        model.setWindowCount(12);
        model.setDisplays({display("Built-in Display", {0, 360, 1440, 900}, true),
                           display("U2720Q", {1440, 0, 2560, 1440})});
    }
    PanelModel::Action note(const char *what)
    {
        return [this, what] { pressed << QString::fromLatin1(what); };
    }
    PanelWindow &open(PanelController::Keyboard keyboard = PanelController::Keyboard::Take)
    {
        controller.open({QRect(900, 0, 24, 24), QRect(0, 24, 1920, 1056), {}}, keyboard);
        if (!QTest::qWaitForWindowExposed(controller.window()))
            qFatal("the panel does not show");
        return *controller.window();
    }
    template <typename Widget = ActionControl> std::vector<Widget *> shown()
    {
        std::vector<Widget *> result;
        for (Widget *widget : controller.window()->findChildren<Widget *>()) {
            if (widget->isVisible())
                result.push_back(widget);
        }
        return result;
    }
    QStringList titles()
    {
        QStringList result;
        for (const ActionControl *control : shown())
            result << control->title();
        return result;
    }
    ActionControl &control(const QString &title)
    {
        for (ActionControl *one : shown()) {
            if (one->title() == title)
                return *one;
        }
        qFatal("no control %s", qPrintable(title));
    }
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

void saveScreenshot(QWidget &window, const QString &name)
{
    const double scale = name.endsWith(u"200") ? 2 : 1;
    QImage picture(window.size() * scale, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    window.render(&picture);
    const QDir folder(QStringLiteral(PANOREL_SCREENSHOTS));
    QVERIFY(folder.mkpath(QStringLiteral(".")));
    QVERIFY(picture.save(folder.filePath(QStringLiteral("panel-%1.png").arg(name))));
}

} // namespace

class PanelTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void everythingCanBePressedInOrder();
    void keysReachWhatTheyShow_data();
    void keysReachWhatTheyShow();
    void aRowWithoutActionIsNotOffered();
    void theStatusLineSaysHowThingsStand_data();
    void theStatusLineSaysHowThingsStand();
    void theDeskCardShowsTheDesk();
    void thePermissionTakesThePlaceOfRestoreNow();
    void theLastActionCanBeUndoneWhereItCan();
    void theTipStaysClosed();
    void scenesComeAndGoWhileOneIsPressed();
    void everyControlHasAName();
    void thePanelOpensAnewEachTime();
    void aPanelHigherThanTheScreenScrolls();
    void screenshots_data();
    void screenshots();

private:
    QFont m_font = QApplication::font();
};

void PanelTests::init()
{
    QApplication::setPalette(lightPalette);
    QApplication::setFont(m_font);
}

void PanelTests::everythingCanBePressedInOrder()
{
    Panel panel;
    panel.model.setScenes({scene(QStringLiteral("Writing")), scene(QStringLiteral("R&D"))});
    panel.model.setCanUndo(true);
    panel.open();
    const QStringList expected{QStringLiteral("Restore Now"),
                               QStringLiteral("Undo"),
                               QStringLiteral("Set one"),
                               QStringLiteral("Close tip"),
                               QStringLiteral("Stash the desk"),
                               QStringLiteral("Writing"),
                               QStringLiteral("R&D"),
                               QStringLiteral("Save current as scene"),
                               QStringLiteral("Layouts…"),
                               QStringLiteral("Settings…"),
                               QStringLiteral("Check for Updates…"),
                               QStringLiteral("Quit Panorel")};
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

    for (const QString &title : expected) {
        if (title == u"Close tip")
            continue;
        panel.open();
        QTest::mouseClick(&panel.control(title), Qt::LeftButton);
    }
    panel.pressed.removeAll(QStringLiteral("opening"));
    QCOMPARE(
        panel.pressed,
        QStringList({QStringLiteral("restore"), QStringLiteral("undo"), QStringLiteral("shortcuts"),
                     QStringLiteral("stash"), scene(QStringLiteral("Writing")).id.toString(),
                     scene(QStringLiteral("R&D")).id.toString(), QStringLiteral("save"),
                     QStringLiteral("layouts"), QStringLiteral("settings"),
                     QStringLiteral("updates"), QStringLiteral("quit")}));
}

void PanelTests::keysReachWhatTheyShow_data()
{
    QTest::addColumn<QKeyCombination>("keys");
    QTest::addColumn<QString>("did");
    QTest::addColumn<bool>("staysOpen");
    const auto row = [](const char *name, QKeyCombination keys, const char *did, bool staysOpen) {
        QTest::newRow(name) << keys << QString::fromLatin1(did) << staysOpen;
    };
    row("Enter", Qt::Key_Return, "restore", true);
    row("Enter on the keypad", Qt::Key_Enter, "restore", true);
    row("Space", Qt::Key_Space, "restore", true);
    row("Layouts", Qt::CTRL | Qt::Key_L, "layouts", false);
    row("Settings", Qt::CTRL | Qt::Key_Comma, "settings", false);
    row("Quit", Qt::CTRL | Qt::Key_Q, "quit", false);
    row("Escape", Qt::Key_Escape, "", false);
}

void PanelTests::keysReachWhatTheyShow()
{
    QFETCH(QKeyCombination, keys);
    QFETCH(QString, did);
    QFETCH(bool, staysOpen);
    Panel panel;
    panel.open();
    QTRY_COMPARE(panel.focused(), QStringLiteral("Restore Now"));
    panel.pressed.clear();
    panel.press(keys.key(), keys.keyboardModifiers());
    QTRY_COMPARE(panel.pressed.join(u' '), did);
    QTRY_COMPARE(panel.controller.isOpen(), staysOpen);
}

void PanelTests::aRowWithoutActionIsNotOffered()
{
    Panel panel;
    panel.model.setCanUndo(true);
    for (PanelModel::Action *action :
         {&panel.model.onUndo, &panel.model.onStash, &panel.model.onSaveScene,
          &panel.model.onOpenLayouts, &panel.model.onOpenSettings, &panel.model.onOpenShortcuts,
          &panel.model.onCheckForUpdates})
        *action = {};
    panel.model.onApplyScene = {};
    panel.open();
    QCOMPARE(panel.titles(),
             QStringList({QStringLiteral("Restore Now"), QStringLiteral("Quit Panorel")}));
}

void PanelTests::theStatusLineSaysHowThingsStand_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<qint64>("windows");
    QTest::addColumn<QString>("expected");
    QTest::newRow("off") << false << qint64(12) << QStringLiteral("Panorel is off");
    QTest::newRow("none yet") << true << qint64(0) << QStringLiteral("No layout saved yet");
    QTest::newRow("one") << true << qint64(1) << QStringLiteral("1 windows remembered");
    QTest::newRow("many") << true << qint64(12) << QStringLiteral("12 windows remembered");
}

void PanelTests::theStatusLineSaysHowThingsStand()
{
    QFETCH(bool, enabled);
    QFETCH(qint64, windows);
    QFETCH(QString, expected);
    Panel panel;
    panel.open();
    panel.prefs.setEnabled(enabled);
    panel.model.setWindowCount(windows);
    QCOMPARE(panel.text("status"), expected);
}

void PanelTests::theDeskCardShowsTheDesk()
{
    Panel panel;
    panel.open();
    QCOMPARE(panel.text("deskName"), QStringLiteral("Office"));
    QCOMPARE(panel.text("displayNames"), QStringLiteral("Built-in Display + U2720Q"));
    panel.model.setDisplays({});
    QCOMPARE(panel.text("displayNames"), QStringLiteral("No displays detected"));
}

void PanelTests::thePermissionTakesThePlaceOfRestoreNow()
{
    Panel panel;
    panel.model.setHasPermission(false);
    panel.open();
    QCOMPARE(panel.text("permission"),
             QStringLiteral("Panorel needs Accessibility permission to move windows."));
    QVERIFY(!panel.titles().contains(QStringLiteral("Restore Now")));
    QTest::mouseClick(&panel.control(QStringLiteral("Grant permission…")), Qt::LeftButton);
    QCOMPARE(panel.pressed.last(), QStringLiteral("grant"));
    panel.model.setHasPermission(true);
    QCOMPARE(panel.text("permission"), QString());
    QVERIFY(panel.titles().contains(QStringLiteral("Restore Now")));
}

void PanelTests::theLastActionCanBeUndoneWhereItCan()
{
    Panel panel;
    panel.open();
    QCOMPARE(panel.text("lastAction"), QString());
    panel.model.setLastAction(QStringLiteral("No layout saved yet"));
    QCOMPARE(panel.text("lastAction"), QStringLiteral("No layout saved yet"));
    QVERIFY(!panel.titles().contains(QStringLiteral("Undo")));
    panel.model.setCanUndo(true);
    QVERIFY(panel.titles().contains(QStringLiteral("Undo")));
}

void PanelTests::theTipStaysClosed()
{
    Panel panel;
    panel.open();
    QTest::mouseClick(&panel.control(QStringLiteral("Close tip")), Qt::LeftButton);
    QVERIFY(panel.prefs.tipDismissed());
    QVERIFY(!panel.titles().contains(QStringLiteral("Set one")));
    panel.controller.close();
    panel.open();
    QVERIFY(!panel.titles().contains(QStringLiteral("Set one")));
}

void PanelTests::scenesComeAndGoWhileOneIsPressed()
{
    Panel panel;
    const HotKeyCombo key{18, HotKeyCombo::command};
    panel.model.setScenes({scene(QStringLiteral("Writing"), key)});
    panel.model.onApplyScene = [&](const QUuid &) {
        panel.model.setScenes({scene(QStringLiteral("Other"))});
    };
    panel.open();
    ActionControl &row = panel.control(QStringLiteral("Writing"));
    QCOMPARE(row.accessibleDescription(), QStringLiteral("Super+1"));
    QTest::mouseClick(&row, Qt::LeftButton);
    QVERIFY(!panel.titles().contains(QStringLiteral("Writing")));
    QTRY_VERIFY(panel.titles().contains(QStringLiteral("Other")));
}

void PanelTests::everyControlHasAName()
{
    Panel panel;
    panel.model.setScenes({scene(QStringLiteral("Writing"))});
    panel.model.setCanUndo(true);
    panel.open();
    int count = 0;
    for (const QWidget *widget : panel.shown<QWidget>()) {
        if (widget->focusPolicy() == Qt::NoFocus)
            continue;
        const QAccessibleInterface *accessible =
            QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget));
        QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
        QVERIFY(widget->height() >= 28);
        ++count;
    }
    QCOMPARE(count, 11);
}

void PanelTests::thePanelOpensAnewEachTime()
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
    panel.controller.toggle({{}, QRect(0, 0, 1920, 1080), {}});
    QCOMPARE(panel.pressed.size(), 2);
    QCOMPARE(panel.controller.window()->geometry().right(), 1920 - 8 - 1);
}

void PanelTests::aPanelHigherThanTheScreenScrolls()
{
    Panel panel;
    std::vector<SceneRecord> many;
    for (int i = 0; i < 60; ++i)
        many.push_back(scene(QStringLiteral("Scene %1").arg(i)));
    panel.model.setScenes(many);
    PanelWindow &window = panel.open();
    QTRY_COMPARE(window.height(), 1056 - 16);
    panel.control(QStringLiteral("Quit Panorel")).setFocus(Qt::TabFocusReason);
    panel.press(Qt::Key_Up); // focusing by keyboard scrolls there
    const ActionControl &near = panel.control(QStringLiteral("Check for Updates…"));
    QTRY_VERIFY(window.rect().contains(near.mapTo(&window, near.rect().center())));
}

void PanelTests::screenshots_data()
{
    using Act = std::function<void(Panel &)>;
    QTest::addColumn<Act>("act");
    const auto furnish = [](Panel &panel) {
        panel.model.setScenes(
            {scene(QStringLiteral("Writing"), HotKeyCombo{18, HotKeyCombo::command}),
             scene(QStringLiteral("Review & release")),
             scene(QStringLiteral("Präsentation für den Aufsichtsrat im großen Sitzungssaal"),
                   HotKeyCombo{19, HotKeyCombo::command | HotKeyCombo::shift})});
        panel.model.setLastAction(QStringLiteral("Put back 11 of 12 windows"));
        panel.model.setCanUndo(true);
        panel.prefs.setTipDismissed(true);
    };
    const auto dark = [](Panel &) { QApplication::setPalette(darkPalette); };
    QTest::newRow("light") << Act([](Panel &) {});
    QTest::newRow("dark") << Act(dark);
    QTest::newRow("scenes-light") << Act(furnish);
    QTest::newRow("scenes-dark") << Act([=](Panel &panel) {
        furnish(panel);
        dark(panel);
        panel.model.setIsStashed(true);
    });
    QTest::newRow("scenes-200") << Act(furnish);
    QTest::newRow("scenes-dark-200") << Act([=](Panel &panel) {
        furnish(panel);
        dark(panel);
    });
    QTest::newRow("no-permission") << Act([](Panel &panel) {
        panel.model.setHasPermission(false);
        panel.model.setWindowCount(0);
    });
    QTest::newRow("no-permission-dark") << Act([=](Panel &panel) {
        panel.model.setHasPermission(false);
        dark(panel);
    });
    QTest::newRow("off") << Act([](Panel &panel) { panel.prefs.setEnabled(false); });
    QTest::newRow("no-displays") << Act([](Panel &panel) { panel.model.setDisplays({}); });
    QTest::newRow("long-texts") << Act([](Panel &panel) {
        panel.model.setDeskName(
            QStringLiteral("Arbeitsplatz im Dachgeschoss mit Donaudampfschifffahrtsblick"));
        panel.model.setDisplays({display("Integrierter Bildschirm", {0, 0, 1440, 900}, true),
                                 display("DELL U2720Q Ultrasharp", {1440, 0, 2560, 1440}),
                                 display("LG", {4000, -400, 1080, 1920})});
        panel.model.setLastAction(
            QStringLiteral("Applied Präsentation für den Aufsichtsrat: 12 windows"));
        panel.model.setCanUndo(true);
    });
    QTest::newRow("big-font") << Act([=](Panel &panel) {
        furnish(panel);
        panel.prefs.setTipDismissed(false);
        QFont font = QApplication::font();
        font.setPointSizeF(font.pointSizeF() * 1.5);
        QApplication::setFont(font);
    });
    QTest::newRow("keyboard") << Act([](Panel &panel) {
        QTest::keyClick(panel.controller.window()->focusWidget(), Qt::Key_Tab);
    });
}

void PanelTests::screenshots()
{
    QFETCH(std::function<void(Panel &)>, act);
    Panel panel;
    PanelWindow &window = panel.open();
    act(panel); // while it is open: all of it is followed at once
    QCoreApplication::processEvents();
    auto *result = window.findChild<QLabel *>(QStringLiteral("lastAction"));
    QTRY_VERIFY(!result->graphicsEffect()); // faded in
    QTRY_COMPARE(window.size(), window.sizeHint());
    saveScreenshot(window, QString::fromLatin1(QTest::currentDataTag()));
}

QTEST_MAIN(PanelTests)
#include "PanelTests.moc"
