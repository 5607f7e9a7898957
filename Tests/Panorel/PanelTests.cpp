#include "Panorel/Panel/PanelController.h"
#include "Panorel/Panel/PanelWindow.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "Panorel/UI/ListRow.h"
#include "Panorel/UI/Theme.h"
#include "Support/InMemoryPlatform.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
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
    QTest::newRow("dark-200") << Act([=](Panel &panel) {
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
