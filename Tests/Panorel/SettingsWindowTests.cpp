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
        settings.controller.reset();
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
        const std::pair<const char *, bool PreferenceValues::*> switches[] = {
            {"Keep windows where I leave them", &PreferenceValues::enabled},
            {"Restore when displays change", &PreferenceValues::restoreAutomatically},
            {"Restore sizes too", &PreferenceValues::alsoRestoreSizes},
            {"Place newly opened apps", &PreferenceValues::placeNewApps},
            {"Hide other apps when switching", &PreferenceValues::hideOthersOnSwitch},
            {"Launch at login", &PreferenceValues::launchAtLogin},
            {"Show icon in the Dock", &PreferenceValues::showDockIcon}};
        Settings settings(SettingsSection::General);
        Prefs &prefs = *settings.program.prefs;
        for (const auto &[title, value] : switches) {
            auto *toggle = qobject_cast<Toggle *>(settings.view().find(title));
            QVERIFY2(toggle, title);
            const bool before = prefs.values().*value;
            QCOMPARE(toggle->isChecked(), before);
            QTest::keyClick(toggle, Qt::Key_Space);
            QVERIFY2(prefs.values().*value != before, title);
            QTest::mouseClick(toggle->parentWidget(), Qt::LeftButton, {}, {4, 4}); // its row
            QVERIFY2(prefs.values().*value == before, title);
        }
        auto *login =
            QAccessible::queryAccessibleInterface(settings.view().find("Launch at login"));
        QCOMPARE(login->role(), QAccessible::CheckBox);
        prefs.setLaunchAtLogin(true); // from elsewhere
        QVERIFY(login->state().checked);
    }

    void generalSaysWhatTheSystemLacks()
    {
        Settings settings(SettingsSection::General, false);
        QVERIFY(settings.shows("Panorel needs Accessibility permission to move windows."));
        settings.program.desktop.trusted = true;
        settings.click("Grant permission…");
        QVERIFY(settings.shows("Panorel has the permission to move windows."));

        settings.program.desktop.trusted = settings.program.desktop.trustIsGranted = false;
        settings.program.start(); // without a window manager
        QVERIFY(!settings.program.panel.isPermissionGrantedByUser());
        QVERIFY(!settings.program.panel.onGrantPermission);
        Settings without({}, false);
        without.program.desktop.trustIsGranted = false;
        without.show(SettingsSection::General);
        QVERIFY(without.shows("No window can be moved, as no window manager is running."));
        QVERIFY(!without.view().find("Grant permission…"));
    }

    void displaysAreNamedWithTheirSizes()
    {
        Settings settings(SettingsSection::Displays);
        for (const char *text : {"Built-in", "1440 × 900", "Dock", "1920 × 1080"})
            QVERIFY2(settings.shows(text), text);
        for (const char *gone : {"Dock", "Built-in"}) {
            settings.program.platform.display.unplug(u(gone));
            settings.program.watcher->refresh();
            settings.model.refresh();
            QVERIFY2(!settings.shows(gone), gone);
        }
        QVERIFY(settings.shows("No displays detected"));
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
        settings.program.prefs->setDisplaySettleSeconds(7); // from elsewhere
        QCOMPARE(delay.value(), 7.0);
    }

    void combinationsAreRecorded()
    {
        const auto controlAlt = Qt::ControlModifier | Qt::AltModifier;
        const char *add =
            "Add a modifier: a shortcut takes its keys away from every other program.";
        const char *shift = "Shift alone is for typing. Add another modifier.";
        const char *noPart = "This key can't be part of a shortcut.";
        const Recording recordings[] = {
            {Qt::Key_D, controlAlt, 2, "Ctrl+Alt+D"},
            {Qt::Key_D, Qt::MetaModifier, 2, "Super+D"},
            {Qt::Key_Y, Qt::AltModifier, 6, "Alt+Z"}, // the position counts
            {Qt::Key_F5, {}, 96, "F5"},
            {Qt::Key_Escape, Qt::ControlModifier, 53, "Ctrl+Esc"},
            {Qt::Key_Tab, Qt::ControlModifier, 48, "Ctrl+Tab"},
            {Qt::Key_Backspace, Qt::AltModifier, 51, "Alt+Backspace"},
            {Qt::Key_S, controlAlt, 1, "Ctrl+Alt+S", "Already used by Scene 1"},
            {Qt::Key_T, controlAlt, 17, "Ctrl+Alt+T", "Already used by another program"},
            {Qt::Key_Escape, {}, 53, "Alt+U"}, // as before
            {Qt::Key_Tab, {}, 48, "Alt+U"},    // the same, and goes on
            {Qt::Key_Backspace, {}, 51, "Record keys"},
            {Qt::Key_Delete, {}, 117, "Record keys"},
            {Qt::Key_D, {}, 2, "", add},
            {Qt::Key_D, Qt::ShiftModifier, 2, "", shift},
            {Qt::Key_unknown, Qt::AltModifier, 10, "", noPart},
            {Qt::Key_VolumeUp, Qt::AltModifier, 5000, "", noPart}};
        for (const Recording &recording : recordings)
            record(recording);
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
            {"general", SettingsSection::General},
            {"displays", SettingsSection::Displays},
            {"shortcuts", SettingsSection::Shortcuts},
            {"about", SettingsSection::About}};
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
            for (Settings *each : {&full, &empty}) {
                each->show(section);
                const QByteArray state = each == &full ? "settings-" : "settings-empty-";
                each->view().photograph(state + name, [&] { return each->isAllWords(); });
            }
        }
    }

private:
    /// For undoing, which has Alt+U. What is refused is followed by what is not.
    static void record(const Recording &recording)
    {
        const auto &[key, modifiers, keyCode, shownText, remark] = recording;
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
        const bool isRefused = !*shownText;
        QCOMPARE(recorder.isRecording(), isRefused);
        QVERIFY2(!*remark || settings.shows(remark), remark);
        if (isRefused)
            press(recorder, Qt::Key_D, Qt::MetaModifier, 2);
        const QString shown = u(isRefused ? "Super+D" : shownText);
        QCOMPARE(recorder.text(), shown);
        QCOMPARE(recorder.accessibleDescription(), shown);
        const auto stored = settings.program.prefs->undoHotKey();
        QCOMPARE(stored ? stored->pcString() : u("Record keys"), shown);
        const bool isInForce = stored && *stored != keys.refused.front();
        QCOMPARE(keys.registered.size(), registered - (isInForce ? 0 : 1));
        QWidget *row = recorder.parentWidget()->parentWidget()->parentWidget();
        QCOMPARE(row->findChild<QWidget *>(u("remark"))->isVisible(), *remark && !isRefused);
        QCOMPARE(settings.window().focusWidget() == &recorder, key != Qt::Key_Tab || modifiers);
    }
};

QTEST_MAIN(SettingsWindowTests)
#include "SettingsWindowTests.moc"
