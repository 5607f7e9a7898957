#include "Panorel/Settings/HotKeyRecorder.h"
#include "Panorel/Settings/SettingsWindow.h"
#include "Panorel/Settings/SettingsWindowController.h"
#include "Panorel/Settings/UpdaterCenter.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/Toggle.h"
#include "Panorel/ViewProbe.h"

#include <QAccessible>
#include <QDoubleSpinBox>
#include <QPointer>

using namespace Panorel;

namespace {

QString u(const char *text)
{
    return QString::fromUtf8(text);
}

/// The settings of a program on two displays.
struct Settings {
    SettingsProgram program;
    SettingsModel &model = program.model;
    UpdaterCenter updater{*program.platform.updater()};
    std::unique_ptr<SettingsWindowController> controller;

    explicit Settings(std::optional<SettingsSection> shown = {}, bool isTrusted = true)
        : program(isTrusted)
    {
        start();
        if (shown)
            show(shown);
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
    ViewProbe view() { return {window()}; }
    void click(const char *title) { view().click(title); }
    bool shows(const char *text) { return view().reads(text); }
    /// What is not the user's has the width that it needs.
    bool isAllWords()
    {
        return std::ranges::all_of(view().shown<TextLabel>(), [](const TextLabel *label) {
            const bool isName = label->text().contains(u'ä');
            return label->height() >= label->minimumSizeHint().height()
                   && (isName || label->wordWrap() || label->width() >= label->sizeHint().width());
        });
    }
    HotKeyRecorder &recorder(const char *name)
    {
        const QByteArray title = QByteArray("Shortcut for ") + name;
        return *qobject_cast<HotKeyRecorder *>(view().find(title));
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

struct Recording {
    int key;
    Qt::KeyboardModifiers modifiers;
    quint32 keyCode;
    const char *shown; ///< empty where the keys are refused
    const char *remark = "";
};

} // namespace

Q_DECLARE_METATYPE(HotKeyCombo)

class SettingsWindowTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationVersion(u("1.0")); }

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
        Settings settings(SettingsSection::General);
        settings.click("Shortcuts");
        QCOMPARE(settings.model.selectedSection(), SettingsSection::Shortcuts);
        QVERIFY(settings.shows("Stash"));
        ActionControl &entry = *settings.view().find("Shortcuts");
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

    void everySwitchIsAPreference()
    {
        const struct {
            const char *title;
            bool (Prefs::*get)() const;
            void (Prefs::*set)(bool);
        } switches[] = {
            {"Keep windows where I leave them", &Prefs::enabled, &Prefs::setEnabled},
            {"Restore when displays change", &Prefs::restoreAutomatically,
             &Prefs::setRestoreAutomatically},
            {"Restore sizes too", &Prefs::alsoRestoreSizes, &Prefs::setAlsoRestoreSizes},
            {"Place newly opened apps", &Prefs::placeNewApps, &Prefs::setPlaceNewApps},
            {"Hide other apps when switching", &Prefs::hideOthersOnSwitch,
             &Prefs::setHideOthersOnSwitch},
            {"Launch at login", &Prefs::launchAtLogin, &Prefs::setLaunchAtLogin},
            {"Show icon in the Dock", &Prefs::showDockIcon, &Prefs::setShowDockIcon}};
        Settings settings(SettingsSection::General);
        Prefs &prefs = *settings.program.prefs;
        for (const auto &[title, get, set] : switches) {
            auto *toggle = qobject_cast<Toggle *>(settings.view().find(title));
            QVERIFY2(toggle, title);
            const bool before = (prefs.*get)();
            QCOMPARE(toggle->isChecked(), before);
            QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(toggle);
            QCOMPARE(spoken->role(), QAccessible::CheckBox);
            QCOMPARE(bool(spoken->state().checked), before);
            QTest::mouseClick(toggle, Qt::LeftButton);
            QVERIFY2((prefs.*get)() != before, title);
            QTest::keyClick(toggle, Qt::Key_Return);
            QTest::keyClick(toggle, Qt::Key_Space);
            QVERIFY2((prefs.*get)() != before, title);
            QTest::mouseClick(toggle->parentWidget(), Qt::LeftButton, {}, {4, 4}); // its row
            QVERIFY2((prefs.*get)() == before, title);
            (prefs.*set)(!before); // from elsewhere
            QVERIFY2(toggle->isChecked() != before, title);
        }
    }

    void generalSaysWhatTheSystemLacks()
    {
        Settings settings(SettingsSection::General, false);
        QVERIFY(settings.shows("Panorel needs Accessibility permission to move windows."));
        settings.program.desktop.trusted = true;
        settings.click("Grant permission…");
        QVERIFY(settings.shows("Panorel has the permission to move windows."));
    }

    void withoutAWindowManagerNoPermissionIsAskedFor()
    {
        Settings settings({}, false);
        settings.program.desktop.trustIsGranted = false;
        settings.show(SettingsSection::General);
        QVERIFY(settings.shows("No window can be moved, as no window manager is running."));
        QVERIFY(!settings.view().find("Grant permission…"));
        settings.program.start(); // knows it from the beginning
        QVERIFY(!settings.program.panel.isPermissionGrantedByUser());
        QVERIFY(!settings.program.panel.onGrantPermission);
    }

    void displaysAreNamedWithTheirSizes()
    {
        Settings settings(SettingsSection::Displays);
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
        QDoubleSpinBox &delay = *settings.view().shown<QDoubleSpinBox>().at(0);
        QCOMPARE(delay.accessibleName(), u("Wait before moving windows"));
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
        QTest::addColumn<Recording>("recording");
        const auto row = [](const char *name, const Recording &recording) {
            QTest::newRow(name) << recording;
        };
        const char *needsModifier =
            "Add a modifier: a shortcut takes its keys away from every other program.";
        row("modifiers and key",
            {Qt::Key_D, Qt::ControlModifier | Qt::AltModifier, 2, "Ctrl+Alt+D"});
        row("Super", {Qt::Key_D, Qt::MetaModifier, 2, "Super+D"});
        row("the position counts", {Qt::Key_Y, Qt::AltModifier, 6, "Alt+Z"});
        row("function key alone", {Qt::Key_F5, {}, 96, "F5"});
        row("Escape with a modifier", {Qt::Key_Escape, Qt::ControlModifier, 53, "Ctrl+Esc"});
        row("Tab with a modifier", {Qt::Key_Tab, Qt::ControlModifier, 48, "Ctrl+Tab"});
        row("Backspace with a modifier", {Qt::Key_Backspace, Qt::AltModifier, 51, "Alt+Backspace"});
        row("taken", {Qt::Key_S, Qt::ControlModifier | Qt::AltModifier, 1, "Ctrl+Alt+S",
                      "Already used by Scene 1"});
        row("another program's", {Qt::Key_T, Qt::ControlModifier | Qt::AltModifier, 17,
                                  "Ctrl+Alt+T", "Already used by another program"});
        row("Escape cancels", {Qt::Key_Escape, {}, 53, "Alt+U"});
        row("Tab goes on", {Qt::Key_Tab, {}, 48, "Alt+U"});
        row("Backspace clears", {Qt::Key_Backspace, {}, 51, "Record keys"});
        row("Delete clears", {Qt::Key_Delete, {}, 117, "Record keys"});
        row("no modifier", {Qt::Key_D, {}, 2, "", needsModifier});
        row("Shift alone", {Qt::Key_D, Qt::ShiftModifier, 2, "",
                            "Shift alone is for typing. Add another modifier."});
        row("a key without a name",
            {Qt::Key_unknown, Qt::AltModifier, 10, "", "This key can't be part of a shortcut."});
        row("an unknown key",
            {Qt::Key_VolumeUp, Qt::AltModifier, 5000, "", "This key can't be part of a shortcut."});
    }

    void combinationsAreRecorded()
    {
        QFETCH(Recording, recording);
        auto &[key, modifiers, keyCode, shownText, remarkText] = recording;
        QString shown = u(shownText);
        QString remark = u(remarkText);
        Settings settings;
        settings.program.addScene("Scene 1",
                                  HotKeyCombo{1, HotKeyCombo::control | HotKeyCombo::option});
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
        Settings settings(SettingsSection::Shortcuts);
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
        QVERIFY(settings.program.platform.keys.registered.empty());
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
        Settings settings(SettingsSection::Shortcuts);
        settings.click("Save current as scene");
        QPointer<HotKeyRecorder> recorder = &settings.recorder("Scene 1");
        QTest::mouseClick(recorder, Qt::LeftButton);
        press(*recorder, Qt::Key_D, Qt::ControlModifier | Qt::AltModifier, 2);
        QVERIFY(recorder && recorder->isVisible()); // the row that has the keyboard stays
        QCOMPARE(settings.model.scenes().at(0).hotKey,
                 (HotKeyCombo{2, HotKeyCombo::control | HotKeyCombo::option}));
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
        QVERIFY(!settings.program.platform.checksForUpdates);
        settings.click("Check for Updates…");
        QCOMPARE(settings.program.platform.updateChecks, 1);
        for (const char *text : {"Qt", "LGPL version 3", "GLib", "LGPL version 2.1 or later"})
            QVERIFY2(settings.shows(text), text);
        settings.window().close();
        settings.start(false);
        settings.show(SettingsSection::About);
        QVERIFY(!settings.shows("Updates"));
    }

    void everythingIsReachedByTab()
    {
        for (int section = 0; section < 6; ++section) {
            Settings settings{SettingsSection(section)};
            QSet<QWidget *> visited;
            for (int i = 0; i < 60; ++i) {
                QTest::keyClick(settings.window().windowHandle(), Qt::Key_Tab);
                visited.insert(settings.window().focusWidget());
            }
            for (ActionControl *control : settings.view().shown<ActionControl>()) {
                const bool isOtherEntry = control->autoExclusive() && !control->isChecked();
                QVERIFY2(isOtherEntry || visited.contains(control),
                         qPrintable(control->accessibleName()));
                QVERIFY(!control->accessibleName().isEmpty());
                QVERIFY(control->height() >= 28 && control->width() >= 28);
            }
        }
    }

    void allOfItShows()
    {
        const std::pair<const char *, SettingsSection> sections[] = {
            {"settings-general", SettingsSection::General},
            {"settings-displays", SettingsSection::Displays},
            {"settings-shortcuts", SettingsSection::Shortcuts},
            {"settings-about", SettingsSection::About}};
        const HotKeyCombo key{1, HotKeyCombo::control | HotKeyCombo::option};
        Settings full;
        for (const char *name : {"Writing", "Präsentation für den Aufsichtsrat im großen "
                                            "Sitzungssaal\nDienstag"})
            full.program.addScene(name, key);
        Settings empty({}, false);
        empty.program.platform.display.unplug(u("Dock"));
        empty.program.platform.display.unplug(u("Built-in"));
        empty.program.watcher->refresh();
        for (const auto &[name, section] : sections) {
            full.show(section);
            full.view().photograph(name, [&] { return full.isAllWords(); });
            empty.show(section);
            empty.view().photograph(QByteArray(name) + "-empty",
                                    [&] { return empty.isAllWords(); });
        }
    }
};

QTEST_MAIN(SettingsWindowTests)
#include "SettingsWindowTests.moc"
