#include "Panorel/Settings/HotKeyRecorder.h"
#include "Panorel/Settings/SettingsWindow.h"
#include "Panorel/Settings/SettingsWindowController.h"
#include "Panorel/Settings/UpdaterCenter.h"
#include "Panorel/SettingsProgram.h"
#include "Panorel/UI/Toggle.h"
#include "Panorel/ViewProbe.h"

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

    explicit Settings(std::optional<SettingsSection> shown = {})
    {
        start();
        if (shown)
            show(shown);
    }
    void start()
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
            model, *program.prefs, &updater, program.platform.defaults, environment);
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
    HotKeyRecorder &recorder(const char *name)
    {
        const QByteArray title = QByteArray("Shortcut for ") + name;
        return *qobject_cast<HotKeyRecorder *>(view().find(title));
    }
};

/// As the platform delivers a key: with the number of its position.
void press(QWidget &widget, int key, Qt::KeyboardModifiers modifiers, quint32 keyCode)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, keyCode + 8, 0, 0);
    QCoreApplication::sendEvent(&widget, &event);
}

HotKeyCombo controlOption(quint32 keyCode)
{
    return {keyCode, HotKeyCombo::control | HotKeyCombo::option};
}

} // namespace

class SettingsWindowTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationVersion(u("1.0")); }

    void theWindowOpensAsItWasLeft()
    {
        Settings settings;
        SettingsWindow &first = settings.show(SettingsSection::Displays);
        first.resize(700, 500);
        first.close();
        settings.model.setSelectedSection(SettingsSection::About);
        QCOMPARE(&settings.show(), &first); // closing only hid it
        settings.start();
        QCOMPARE(settings.show().size(), QSize(700, 500));
    }

    void theSidebarWorksByMouseAndKeys()
    {
        Settings settings(SettingsSection::General);
        settings.click("Shortcuts");
        settings.view().find("Shortcuts")->setFocus(Qt::TabFocusReason);
        for (const auto &[key, section] : {std::pair(Qt::Key_Up, SettingsSection::Displays),
                                           {Qt::Key_End, SettingsSection::About}}) {
            QTest::keyClick(settings.window().focusWidget(), key);
            QCOMPARE(settings.model.selectedSection(), section);
        }
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
    }

    void theDelayIsInForceAtOnce()
    {
        Settings settings(SettingsSection::Displays);
        QTest::keyClick(settings.view().shown<QDoubleSpinBox>().at(0), Qt::Key_Up);
        QCOMPARE(settings.program.watcher->settleSeconds(), 2.0);
    }

    void combinationsAreRecorded()
    {
        const auto controlAlt = Qt::ControlModifier | Qt::AltModifier;
        const struct {
            int key;
            Qt::KeyboardModifiers modifiers;
            quint32 keyCode;
            const char *shown; // "Super+D", which is pressed next, where the keys are refused
            const char *remark = "";
        } rows[] = {{Qt::Key_D, controlAlt, 2, "Ctrl+Alt+D"},
                    {Qt::Key_Y, Qt::AltModifier, 6, "Alt+Z"}, // the position counts
                    {Qt::Key_S, controlAlt, 1, "Ctrl+Alt+S", "Already used by Scene 1"},
                    {Qt::Key_T, controlAlt, 17, "Ctrl+Alt+T", "Already used by another program"},
                    {Qt::Key_Escape, {}, 53, "Alt+U"}, // as before
                    {Qt::Key_Backspace, {}, 51, "Record keys"},
                    {Qt::Key_D, Qt::ShiftModifier, 2, "Super+D",
                     "Shift alone is for typing. Add another modifier."}};
        for (const auto &[key, modifiers, keyCode, shown, remark] : rows) {
            Settings settings;
            settings.program.addScene("Scene 1", controlOption(1));
            settings.program.platform.keys.refused = {controlOption(17)};
            settings.model.setKey(FixedAction::Undo, HotKeyCombo{32, HotKeyCombo::option});
            settings.show(SettingsSection::Shortcuts);
            HotKeyRecorder &recorder = settings.recorder("Undo last restore");
            QTest::mouseClick(&recorder, Qt::LeftButton);
            press(recorder, key, modifiers, keyCode);
            QCOMPARE(recorder.isRecording(), shown == QByteArray("Super+D"));
            QVERIFY2(!*remark || settings.shows(remark), remark);
            if (recorder.isRecording())
                press(recorder, Qt::Key_D, Qt::MetaModifier, 2);
            QCOMPARE(recorder.text(), u(shown));
            const auto stored = settings.program.prefs->undoHotKey();
            QCOMPARE(stored ? stored->pcString() : u("Record keys"), u(shown));
        }
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
        QCOMPARE(settings.model.scenes().at(0).hotKey, controlOption(2));
        settings.click("Clear the shortcut for Scene 1");
        QVERIFY(!settings.model.scenes().at(0).hotKey);
        QTest::mouseClick(recorder, Qt::LeftButton);
        QVERIFY(settings.program.platform.keys.registered.empty());
        settings.model.removeScene(settings.model.scenes().at(0).id); // while it records
        QTRY_VERIFY(!recorder);
        QCOMPARE(settings.program.platform.keys.registered.size(), 3u);
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
        Settings full;
        full.program.addScene("Präsentation für den Aufsichtsrat im großen Sitzungssaal\nDienstag",
                              controlOption(1));
        for (const auto &[name, section] : {std::pair("about", SettingsSection::About),
                                            {"general", SettingsSection::General},
                                            {"shortcuts", SettingsSection::Shortcuts},
                                            {"displays", SettingsSection::Displays}}) {
            full.show(section);
            full.view().photograph(QByteArray("settings-") + name);
        }
        full.click("About");
        full.click("Check for updates automatically");
        QVERIFY(!full.program.platform.checksForUpdates);
    }
};

QTEST_MAIN(SettingsWindowTests)
#include "SettingsWindowTests.moc"
