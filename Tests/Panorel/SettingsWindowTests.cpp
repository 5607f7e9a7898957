#include "InMemoryProgram.h"
#include "Panorel/Settings/HotKeyRecorder.h"
#include "Panorel/Settings/SettingsWindow.h"
#include "Panorel/Settings/SettingsWindowController.h"
#include "Panorel/Settings/UpdaterCenter.h"
#include "Panorel/UI/Confirmation.h"
#include "Panorel/UI/EmptyState.h"
#include "Panorel/UI/PlainButton.h"
#include "Panorel/UI/PrimaryButton.h"
#include "Panorel/UI/TextLabel.h"
#include "Panorel/UI/Toggle.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPointer>
#include <QTest>

using namespace Panorel;

namespace {

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

struct Updates : UpdaterPort {
    bool automatically = true;
    int checks = 0;
    bool automaticallyChecksForUpdates() override { return automatically; }
    void setAutomaticallyChecksForUpdates(bool value) override { automatically = value; }
    void checkForUpdates() override { ++checks; }
};

/// The settings of a program on two displays.
struct Settings {
    Program program;
    SettingsModel model{*program.controller, services()};
    Updates updates;
    UpdaterCenter updater{updates};
    std::unique_ptr<SettingsWindowController> controller;

    explicit Settings(bool isTrusted = true) : program(isTrusted) { start(); }
    AppServices services()
    {
        return {program.platform,  *program.watcher, program.hotKeys,  *program.prefs,
                program.scheduler, program.dir.log,  program.dir.clock};
    }
    void start(bool hasUpdater = true)
    {
        SettingsEnvironment environment;
        environment.takeSettleSeconds = [this] { program.controller->takeSettleSeconds(); };
        environment.suspendHotKeys = [this] { program.controller->suspendHotKeys(); };
        environment.resumeHotKeys = [this] { program.controller->reloadHotKeys(); };
        environment.keyCodeOf = [this](quint32 scanCode, quint32 virtualKey) {
            return program.platform.keys.keyCodeOf(scanCode, virtualKey);
        };
        environment.hasDock = true;
        environment.libraries = {{u("XCB"), Licence::MIT}, {u("GLib"), Licence::LGPL2OrLater}};
        controller = std::make_unique<SettingsWindowController>(
            model, *program.prefs, hasUpdater ? &updater : nullptr, program.platform.defaults,
            environment);
    }
    SettingsWindow &show(std::optional<SettingsSection> section = {})
    {
        controller->show(section);
        if (!QTest::qWaitForWindowActive(controller->window()))
            qFatal("the settings do not show");
        QCoreApplication::processEvents();
        return *controller->window();
    }
    SettingsWindow &window() { return *controller->window(); }
    /// Those that show.
    template <class T> std::vector<T *> all()
    {
        const auto found = window().findChildren<T *>();
        std::vector<T *> shown;
        std::ranges::copy_if(found, std::back_inserter(shown), &QWidget::isVisible);
        return shown;
    }
    template <class T = ActionControl> T &control(const char *name)
    {
        for (T *one : all<T>()) {
            if (one->accessibleName() == u(name))
                return *one;
        }
        qFatal("no control %s", name);
    }
    template <class T = ActionControl> void click(const char *name)
    {
        QTest::mouseClick(&control<T>(name), Qt::LeftButton);
    }
    bool shows(const char *text)
    {
        return std::ranges::any_of(all<QLabel>(),
                                   [&](QLabel *label) { return label->text() == u(text); });
    }
    /// Text has the height that it needs, and what is not the user's the width.
    bool nothingIsCut()
    {
        return std::ranges::all_of(all<TextLabel>(), [](TextLabel *label) {
            const bool isName = label->text().contains(u'ä');
            return label->height() >= label->heightForWidth(label->width())
                   && label->height() >= label->minimumSizeHint().height()
                   && (isName || label->wordWrap() || label->width() >= label->sizeHint().width());
        });
    }
    HotKeyRecorder &recorder(const char *name)
    {
        return control<HotKeyRecorder>(qPrintable(u("Shortcut for %1").arg(u(name))));
    }
    void save(const QString &name, double scale = 1)
    {
        SettingsWindow &widget = window();
        QImage picture(widget.size() * scale, QImage::Format_ARGB32_Premultiplied);
        picture.setDevicePixelRatio(scale);
        picture.fill(Qt::transparent);
        widget.render(&picture);
        const QDir folder(QStringLiteral(PANOREL_SCREENSHOTS));
        QVERIFY(folder.mkpath(QStringLiteral(".")));
        QVERIFY(picture.save(folder.filePath(u("settings-%1.png").arg(name))));
    }
};

/// As the platform delivers a key: with the number of its position.
void send(QWidget &widget, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
          quint32 scanCode)
{
    QKeyEvent event(type, key, modifiers, scanCode, 0, 0);
    QCoreApplication::sendEvent(&widget, &event);
}

void press(QWidget &widget, int key, Qt::KeyboardModifiers modifiers, quint32 keyCode)
{
    send(widget, QEvent::KeyPress, key, modifiers, keyCode + 8);
}

QPalette paletteOf(const QColor &window, const QColor &text)
{
    QPalette palette(text, window, window.lighter(), window.darker(), window, text, window);
    palette.setColor(QPalette::Highlight, QColor(0x3584e4));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

constexpr HotKeyCombo controlAltD{2, HotKeyCombo::control | HotKeyCombo::option};

} // namespace

Q_DECLARE_METATYPE(HotKeyCombo)

class SettingsWindowTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationVersion(u("1.0")); }
    void init() { QApplication::setPalette(paletteOf(0xfafafb, 0x1d1f23)); }

    void theWindowOpensAsItWasLeft()
    {
        Settings settings;
        QVERIFY(!settings.controller->window());
        SettingsWindow &first = settings.show(SettingsSection::Displays);
        QCOMPARE(first.windowTitle(), u("Panorel Settings"));
        QCOMPARE(first.size(), QSize(900, 620).boundedTo(first.screen()->availableSize()));
        QVERIFY((first.geometry().center() - first.screen()->availableGeometry().center())
                    .manhattanLength()
                <= 2);
        first.resize(700, 500);
        first.close();
        settings.model.setSelectedSection(SettingsSection::About);
        QCOMPARE(&settings.show(), &first); // closing only hid it
        QVERIFY(settings.shows("Licences"));
        first.close();
        settings.start();
        QCOMPARE(settings.show().size(), QSize(700, 500));
        settings.program.platform.defaults.setData(u("settingsWindowFrame"), "no frame");
        settings.controller.reset(); // without a save: it shows
        settings.program.platform.defaults.setData(u("settingsWindowFrame"), "no frame");
        settings.start();
        QVERIFY(settings.show().width() >= 560);
    }

    void theSidebarWorksByMouseAndKeys()
    {
        Settings settings;
        settings.show(SettingsSection::General);
        settings.click("Shortcuts");
        QCOMPARE(settings.model.selectedSection(), SettingsSection::Shortcuts);
        QVERIFY(settings.shows("Stash"));
        ActionControl &entry = settings.control("Shortcuts");
        entry.setFocus(Qt::TabFocusReason);
        const std::pair<Qt::Key, SettingsSection> steps[] = {
            {Qt::Key_Up, SettingsSection::Displays}, {Qt::Key_Home, SettingsSection::General},
            {Qt::Key_Up, SettingsSection::General},  {Qt::Key_End, SettingsSection::About},
            {Qt::Key_Down, SettingsSection::About},  {Qt::Key_Up, SettingsSection::Automation},
            {Qt::Key_Up, SettingsSection::Scenes},
        };
        for (const auto &[key, section] : steps) {
            QTest::keyClick(settings.window().focusWidget(), key);
            QCOMPARE(settings.model.selectedSection(), section);
        }
        QCOMPARE(settings.window().focusWidget()->accessibleName(), u("Scenes"));
    }

    void everySwitchIsAPreference_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("index");
        const char *names[] = {"Keep windows where I leave them",
                               "Restore when displays change",
                               "Restore sizes too",
                               "Place newly opened apps",
                               "Hide other apps when switching",
                               "Launch at login",
                               "Show icon in the Dock"};
        for (int i = 0; i < int(std::size(names)); ++i)
            QTest::newRow(names[i]) << u(names[i]) << i;
    }

    void everySwitchIsAPreference()
    {
        using Getter = bool (Prefs::*)() const;
        using Setter = void (Prefs::*)(bool);
        static constexpr std::pair<Getter, Setter> preferences[] = {
            {&Prefs::enabled, &Prefs::setEnabled},
            {&Prefs::restoreAutomatically, &Prefs::setRestoreAutomatically},
            {&Prefs::alsoRestoreSizes, &Prefs::setAlsoRestoreSizes},
            {&Prefs::placeNewApps, &Prefs::setPlaceNewApps},
            {&Prefs::hideOthersOnSwitch, &Prefs::setHideOthersOnSwitch},
            {&Prefs::launchAtLogin, &Prefs::setLaunchAtLogin},
            {&Prefs::showDockIcon, &Prefs::setShowDockIcon}};
        QFETCH(QString, name);
        QFETCH(int, index);
        const auto [get, set] = preferences[index];
        Settings settings;
        settings.show(SettingsSection::General);
        Prefs &prefs = *settings.program.prefs;
        auto &toggle = settings.control<Toggle>(qPrintable(name));
        const bool before = (prefs.*get)();
        QCOMPARE(toggle.isChecked(), before);
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&toggle);
        QCOMPARE(spoken->role(), QAccessible::CheckBox);
        QCOMPARE(bool(spoken->state().checked), before);
        QTest::mouseClick(&toggle, Qt::LeftButton);
        QCOMPARE((prefs.*get)(), !before);
        QTest::keyClick(&toggle, Qt::Key_Return);
        QTest::keyClick(&toggle, Qt::Key_Space);
        QCOMPARE((prefs.*get)(), !before);
        QTest::mouseClick(toggle.parentWidget(), Qt::LeftButton, {}, {4, 4}); // its row
        QCOMPARE((prefs.*get)(), before);
        (prefs.*set)(!before); // from elsewhere
        QCOMPARE(toggle.isChecked(), !before);
    }

    void generalSaysWhatTheSystemLacks()
    {
        Settings settings(false);
        settings.show(SettingsSection::General);
        QVERIFY(settings.shows("Panorel needs Accessibility permission to move windows."));
        settings.program.desktop.trusted = true;
        settings.click("Grant permission…");
        QVERIFY(settings.shows("Panorel has the permission to move windows."));
        QVERIFY(settings.shows("Off: the scene's windows come forward and everything else stays "
                               "where it is. On: apps with no window in the scene get hidden — "
                               "the Dock brings them back."));
    }

    void withoutAWindowManagerNoPermissionIsAskedFor()
    {
        Settings settings(false);
        settings.program.desktop.trustIsGranted = false;
        settings.show(SettingsSection::General);
        QVERIFY(settings.shows("No window can be moved, as no window manager is running."));
        const auto controls = settings.all<ActionControl>();
        QVERIFY(std::ranges::find(controls, u("Grant permission…"), &ActionControl::title)
                == controls.end());
        settings.program.start(); // knows it from the beginning
        QVERIFY(!settings.program.panel.isPermissionGrantedByUser());
        QVERIFY(!settings.program.panel.onGrantPermission);
    }

    void displaysAreNamedWithTheirSizes()
    {
        Settings settings;
        settings.show(SettingsSection::Displays);
        for (const char *text : {"Built-in", "1440 × 900", "Dock", "1920 × 1080"})
            QVERIFY2(settings.shows(text), text);
        settings.program.undock();
        settings.program.watcher->refresh();
        settings.model.refresh();
        QCoreApplication::processEvents();
        QVERIFY(!settings.shows("Dock") && settings.shows("Built-in"));
        settings.program.platform.display.unplug(u("Built-in"));
        settings.program.watcher->refresh();
        settings.model.refresh();
        QVERIFY(settings.shows("No displays detected"));
        QVERIFY(!settings.shows("Built-in"));
    }

    void theDelayIsInForceAtOnce()
    {
        Settings settings;
        settings.program.prefs->setDisplaySettleSeconds(std::nan(""));
        settings.show(SettingsSection::Displays);
        auto &delay = settings.control<QDoubleSpinBox>("Wait before moving windows");
        QCOMPARE(delay.value(), 1.5);
        QTest::keyClick(&delay, Qt::Key_Up);
        QCOMPARE(settings.program.prefs->displaySettleSeconds(), 2.0);
        QCOMPARE(settings.program.watcher->settleSeconds(), 2.0);
        delay.setValue(100);
        QCOMPARE(settings.program.watcher->settleSeconds(), 60.0);
        settings.program.prefs->setDisplaySettleSeconds(7);
        QCOMPARE(delay.value(), 7.0);
        settings.program.prefs->setDisplaySettleSeconds(61); // from elsewhere
        settings.program.controller->takeSettleSeconds();
        QCOMPARE(settings.program.watcher->settleSeconds(), 1.5);
    }

    void combinationsAreRecorded_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<quint32>("keyCode");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("remark");
        const auto row = [](const char *name, int key, Qt::KeyboardModifiers modifiers,
                            quint32 code, const char *shown, const char *remark = "") {
            QTest::newRow(name) << key << modifiers << code << u(shown) << u(remark);
        };
        const char *needsModifier =
            "Add a modifier: a shortcut takes its keys away from every other program.";
        row("modifiers and key", Qt::Key_D, Qt::ControlModifier | Qt::AltModifier, 2, "Ctrl+Alt+D");
        row("Super", Qt::Key_D, Qt::MetaModifier, 2, "Super+D");
        row("the position counts", Qt::Key_Y, Qt::AltModifier, 6, "Alt+Z");
        row("function key alone", Qt::Key_F5, {}, 96, "F5");
        row("Escape with a modifier", Qt::Key_Escape, Qt::ControlModifier, 53, "Ctrl+Esc");
        row("Tab with a modifier", Qt::Key_Tab, Qt::ControlModifier, 48, "Ctrl+Tab");
        row("Backspace with a modifier", Qt::Key_Backspace, Qt::AltModifier, 51, "Alt+Backspace");
        row("taken", Qt::Key_S, Qt::ControlModifier | Qt::AltModifier, 1, "Ctrl+Alt+S",
            "Already used by Scene 1");
        row("another program's", Qt::Key_T, Qt::ControlModifier | Qt::AltModifier, 17, "Ctrl+Alt+T",
            "Already used by another program");
        row("Escape cancels", Qt::Key_Escape, {}, 53, "Alt+U");
        row("Tab goes on", Qt::Key_Tab, {}, 48, "Alt+U");
        row("Backspace clears", Qt::Key_Backspace, {}, 51, "Record keys");
        row("Delete clears", Qt::Key_Delete, {}, 117, "Record keys");
        row("no modifier", Qt::Key_D, {}, 2, "", needsModifier);
        row("Shift alone", Qt::Key_D, Qt::ShiftModifier, 2, "",
            "Shift alone is for typing. Add another modifier.");
        row("a key without a name", Qt::Key_unknown, Qt::AltModifier, 10, "",
            "This key can't be part of a shortcut.");
        row("an unknown key", Qt::Key_VolumeUp, Qt::AltModifier, 5000, "",
            "This key can't be part of a shortcut.");
    }

    void combinationsAreRecorded()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(quint32, keyCode);
        QFETCH(QString, shown);
        QFETCH(QString, remark);
        Settings settings;
        SceneRecord scene = settings.model.addSceneFromCurrentWindows();
        scene.hotKey = HotKeyCombo{1, HotKeyCombo::control | HotKeyCombo::option};
        settings.model.updateScene(scene);
        settings.model.setKey(FixedAction::Undo, HotKeyCombo{32, HotKeyCombo::option});
        auto &keys = settings.program.platform.keys;
        keys.refused = {HotKeyCombo{17, HotKeyCombo::control | HotKeyCombo::option}};
        const auto registered = keys.registered.size();
        settings.show(SettingsSection::Shortcuts);
        HotKeyRecorder &recorder = settings.recorder("Undo last restore");
        QTest::mouseClick(&recorder, Qt::LeftButton);
        QVERIFY(recorder.isRecording());
        QVERIFY(keys.registered.empty());
        press(recorder, key, modifiers, keyCode);
        const bool isRefused = shown.isEmpty();
        QCOMPARE(recorder.isRecording(), isRefused);
        if (isRefused) { // and the next one counts
            QVERIFY2(settings.shows(qPrintable(remark)), qPrintable(remark));
            press(recorder, Qt::Key_D, Qt::MetaModifier, 2);
            shown = u("Super+D");
            remark.clear();
        }
        QCOMPARE(recorder.text(), shown);
        QCOMPARE(recorder.accessibleDescription(), shown);
        const auto stored = settings.program.prefs->undoHotKey();
        QCOMPARE(stored ? stored->pcString() : u("Record keys"), shown);
        const bool isInForce = stored && *stored != keys.refused.front();
        QCOMPARE(keys.registered.size(), registered - (isInForce ? 0 : 1));
        auto *said = recorder.parentWidget()->parentWidget()->parentWidget()->findChild<QWidget *>(
            u("remark"));
        QCOMPARE(said->isVisible(), !remark.isEmpty());
        QVERIFY(remark.isEmpty() || settings.shows(qPrintable(remark)));
        QCOMPARE(settings.window().focusWidget() == &recorder, key != Qt::Key_Tab || modifiers);
    }

    void theRecorderShowsWhatIsHeld()
    {
        Settings settings;
        settings.show(SettingsSection::Shortcuts);
        HotKeyRecorder &recorder = settings.recorder("Stash");
        QTest::keyClick(&recorder, Qt::Key_Return);
        QCOMPARE(recorder.text(), u("Type the keys…"));
        send(recorder, QEvent::KeyPress, Qt::Key_Control, {}, 0);
        QCOMPARE(recorder.text(), u("Ctrl+…"));
        send(recorder, QEvent::KeyPress, Qt::Key_Shift, Qt::ControlModifier, 0);
        QCOMPARE(recorder.text(), u("Ctrl+Shift+…"));
        send(recorder, QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier | Qt::ShiftModifier,
             0);
        QCOMPARE(recorder.text(), u("Shift+…"));
        const auto keysOfAll = settings.program.platform.keys.registered.size();
        QCOMPARE(keysOfAll, 0u);
        settings.window().close(); // going elsewhere brings the keys back
        QVERIFY(!recorder.isRecording());
        QCOMPARE(settings.program.platform.keys.registered.size(), 3u);
    }

    void commandIsRecordedWhereTheToolkitCallsItControl()
    {
        SettingsEnvironment mac;
        mac.isCommandReportedAsControl = true;
        mac.keyCodeOf = [](quint32, quint32 virtualKey) { return virtualKey; };
        HotKeyRecorder recorder(mac, &HotKeyCombo::displayString);
        std::optional<HotKeyCombo> recorded;
        connect(&recorder, &HotKeyRecorder::recorded, this,
                [&](const auto &combo) { recorded = combo; });
        for (const auto &[reported, meant] : {std::pair{Qt::ControlModifier, HotKeyCombo::command},
                                              {Qt::MetaModifier, HotKeyCombo::control}}) {
            QTest::mouseClick(&recorder, Qt::LeftButton);
            press(recorder, Qt::Key_D, reported | Qt::AltModifier, 2);
            QVERIFY(recorded);
            QCOMPARE(recorded->modifiers, meant | HotKeyCombo::option);
        }
    }

    void scenesHaveKeysAsLongAsTheyExist()
    {
        Settings settings;
        settings.show(SettingsSection::Shortcuts);
        settings.click<PrimaryButton>("Save current as scene");
        QPointer<HotKeyRecorder> recorder = &settings.recorder("Scene 1");
        QTest::mouseClick(recorder, Qt::LeftButton);
        press(*recorder, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier, 2);
        QVERIFY(recorder && recorder->isVisible()); // the row that has the keyboard stays
        QCOMPARE(settings.model.scenes().at(0).hotKey, controlAltD);
        settings.click("Clear the shortcut for Scene 1");
        QVERIFY(!settings.model.scenes().at(0).hotKey);
        QTest::mouseClick(recorder, Qt::LeftButton);
        settings.model.removeScene(settings.model.scenes().at(0).id); // while it records
        QVERIFY(settings.shows("Scenes that you save can have a key each."));
        QTRY_VERIFY(!recorder);
        QCOMPARE(settings.program.platform.keys.registered.size(), 3u);
    }

    void aboutSumsUpWhatWasDone()
    {
        Settings settings;
        settings.program.controller->restoreNow();
        settings.show(SettingsSection::About);
        QVERIFY(settings.shows("So far, Panorel has put back 2 windows across 1 restores."));
        QVERIFY(settings.shows("0 scene switches · 0 stashes · 1 desks"));
        settings.click("Check for updates automatically");
        QVERIFY(!settings.updates.automatically);
        settings.click("Check for Updates…");
        QCOMPARE(settings.updates.checks, 1);
        for (const char *text : {"Qt", "LGPL version 3", "GLib", "LGPL version 2.1 or later"})
            QVERIFY2(settings.shows(text), text);
        settings.window().close();
        settings.start(false);
        settings.show(SettingsSection::About);
        QVERIFY(!settings.shows("Updates"));
    }

    void whatIsLostIsAskedForFirst()
    {
        for (const bool agrees : {false, true}) {
            Settings settings;
            SettingsWindow &window = settings.show();
            int deleted = 0;
            confirm(&window, {u("Delete “<b>R&D</b>”?"), u("Its windows are lost."), u("Delete")},
                    [&] { ++deleted; });
            QPointer<QDialog> dialog = window.findChild<QDialog *>();
            QVERIFY(QTest::qWaitForWindowActive(dialog));
            QCOMPARE(dialog->focusWidget()->accessibleName(), u("Cancel"));
            QVERIFY(settings.shows("Delete “<b>R&D</b>”?"));
            if (agrees)
                settings.click<PrimaryButton>("Delete");
            else
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
            QCOMPARE(deleted, int(agrees));
            QTRY_VERIFY(!dialog);
        }
    }

    void everythingIsReachedByTab()
    {
        for (int section = 0; section < 6; ++section) {
            Settings settings;
            settings.show(SettingsSection(section));
            QSet<QWidget *> visited;
            for (int i = 0; i < 60; ++i) {
                QTest::keyClick(settings.window().windowHandle(), Qt::Key_Tab);
                visited.insert(settings.window().focusWidget());
            }
            for (ActionControl *control : settings.all<ActionControl>()) {
                const bool isOtherEntry = control->autoExclusive() && !control->isChecked();
                QVERIFY2(isOtherEntry || visited.contains(control),
                         qPrintable(control->accessibleName()));
                QVERIFY(!control->accessibleName().isEmpty());
                QVERIFY(control->height() >= 28 && control->width() >= 28);
            }
        }
    }

    void screenshots_data()
    {
        QTest::addColumn<int>("section");
        QTest::addColumn<bool>("isFull");
        const char *sections[] = {"general", "displays",   "shortcuts",
                                  "scenes",  "automation", "about"};
        for (const int section : {0, 1, 2, 5}) {
            for (const char *look : {"", "-dark", "-200", "-large", "-empty"})
                QTest::addRow("%s%s", sections[section], look)
                    << section << !QByteArray(look).endsWith("empty");
        }
    }

    void screenshots()
    {
        QFETCH(int, section);
        QFETCH(bool, isFull);
        const QString name = u(QTest::currentDataTag());
        const QFont font = QApplication::font();
        Settings settings(isFull);
        if (isFull) {
            SceneRecord scene = settings.model.addSceneFromCurrentWindows();
            scene.name = u("Writing");
            scene.hotKey = HotKeyCombo{1, HotKeyCombo::control | HotKeyCombo::option};
            settings.model.updateScene(scene);
            scene = settings.model.addSceneFromCurrentWindows();
            scene.name = u("Präsentation für den Aufsichtsrat im großen Sitzungssaal\nDienstag");
            scene.hotKey = HotKeyCombo{1, HotKeyCombo::control | HotKeyCombo::option};
            settings.model.updateScene(scene);
        } else {
            settings.program.platform.display.unplug(u("Dock"));
            settings.program.platform.display.unplug(u("Built-in"));
            settings.program.watcher->refresh();
        }
        settings.show(SettingsSection(section));
        if (name.endsWith(u"dark"))
            QApplication::setPalette(paletteOf(0x26282c, 0xf1f2f4)); // while it is open
        if (name.endsWith(u"large")) {
            QFont large = font;
            large.setPointSizeF(font.pointSizeF() * 1.5);
            QApplication::setFont(large);
        }
        QTRY_VERIFY(settings.nothingIsCut());
        settings.save(name, name.endsWith(u"200") ? 2 : 1);
        QApplication::setFont(font);
    }
};

QTEST_MAIN(SettingsWindowTests)
#include "SettingsWindowTests.moc"
