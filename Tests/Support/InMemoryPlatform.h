#pragma once

#include "PanorelCore/Matching/CoordSpace.h"
#include "PanorelPorts/Platform.h"
#include "Support/InMemoryDesktop.h"

#include <QVariant>

#include <algorithm>
#include <map>
#include <set>

namespace Panorel {

class InMemoryScreens final : public ScreensPort {
public:
    struct Display {
        Screen screen;
        DisplayIdentity identity;
    };

    /// A display of the given frame in the top-left space, told apart by its serial number. The
    /// first one is the primary.
    void plug(const QString &name, const Rect &frame, std::uint32_t serial)
    {
        const double primaryHeight =
            displays.empty() ? frame.height : displays.front().screen.frame.height;
        constexpr double menuBar = 25;
        const Rect visible{frame.x, frame.y + menuBar, frame.width, frame.height - menuBar};
        displays.push_back(
            {{m_nextNumber++, CoordSpace::flip(frame, primaryHeight),
              CoordSpace::flip(visible, primaryHeight), name},
             {name + QStringLiteral("-uuid"), 0x610, 0xA050, serial, displays.empty()}});
    }
    void unplug(const QString &name)
    {
        std::erase_if(displays,
                      [&](const Display &each) { return each.screen.localizedName == name; });
    }
    void announceChange()
    {
        if (m_changed)
            m_changed();
    }

    std::vector<Display> displays;
    int callbacksSet = 0;

    std::vector<Screen> screens() override
    {
        std::vector<Screen> screens;
        for (const Display &display : displays)
            screens.push_back(display.screen);
        return screens;
    }
    DisplayIdentity identity(DisplayNumber number) override
    {
        const auto found = std::ranges::find(
            displays, number, [](const Display &each) { return each.screen.displayNumber; });
        return found == displays.end() ? DisplayIdentity() : found->identity;
    }
    void setChangeCallback(std::function<void()> changed) override
    {
        m_changed = std::move(changed);
        ++callbacksSet;
    }

private:
    std::function<void()> m_changed;
    DisplayNumber m_nextNumber = 1;
};

class InMemoryDefaults final : public UserDefaultsPort {
public:
    std::map<QString, QVariant> values;

    bool contains(const QString &key) const override { return values.contains(key); }
    std::optional<bool> boolean(const QString &key) const override { return typed<bool>(key); }
    std::optional<double> number(const QString &key) const override { return typed<double>(key); }
    std::optional<QByteArray> data(const QString &key) const override
    {
        return typed<QByteArray>(key);
    }
    std::optional<QString> text(const QString &key) const override { return typed<QString>(key); }
    void setBoolean(const QString &key, bool value) override { values[key] = value; }
    void setNumber(const QString &key, double value) override { values[key] = value; }
    void setData(const QString &key, const QByteArray &value) override { values[key] = value; }
    void setText(const QString &key, const QString &value) override { values[key] = value; }
    void remove(const QString &key) override { values.erase(key); }

private:
    template <typename Value> std::optional<Value> typed(const QString &key) const
    {
        const auto found = values.find(key);
        if (found == values.end() || found->second.metaType() != QMetaType::fromType<Value>())
            return {};
        return found->second.value<Value>();
    }
};

class InMemoryHotKeys final : public HotKeyPort {
public:
    std::vector<HotKeyCombo> refused; ///< held by some other program
    std::map<HotKeyNumber, HotKeyCombo> registered;

    /// Keys with a higher code are on no keyboard.
    static constexpr quint32 lastKeyCode = 127;

    /// The user presses the keys.
    void press(const HotKeyCombo &combo)
    {
        const auto found = std::ranges::find_if(
            registered, [&](const auto &entry) { return entry.second == combo; });
        if (found != registered.end())
            deliver(found->first);
    }
    /// The platform delivers a press, possibly late.
    void deliver(HotKeyNumber number)
    {
        if (m_pressed)
            m_pressed(number);
    }

    void setPressedCallback(std::function<void(HotKeyNumber)> pressed) override
    {
        m_pressed = std::move(pressed);
    }
    std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyCombo &combo,
                                                       HotKeyNumber number) override
    {
        if (combo.keyCode > lastKeyCode || std::ranges::find(refused, combo) != refused.end())
            return nullptr;
        registered[number] = combo;
        return std::make_unique<Registration>(*this, number);
    }
    /// A key's scan code is its code and 8, as X counts them.
    std::optional<quint32> keyCodeOf(quint32 nativeScanCode, quint32) const override
    {
        const bool isKey = nativeScanCode >= 8 && nativeScanCode - 8 <= lastKeyCode;
        return isKey ? std::optional(nativeScanCode - 8) : std::nullopt;
    }
    bool isCommandReportedAsControl() const override { return false; }
    QString text(const HotKeyCombo &combo) const override { return combo.pcString(); }

private:
    struct Registration final : HotKeyRegistration {
        Registration(InMemoryHotKeys &all, HotKeyNumber held) : keys(all), number(held) {}
        ~Registration() override { keys.registered.erase(number); }

        InMemoryHotKeys &keys;
        HotKeyNumber number;
    };

    std::function<void(HotKeyNumber)> m_pressed;
};

/// What the user's calendars hold. Answers within the call, or when the test says so.
class InMemoryCalendar final : public CalendarPort {
public:
    CalendarAuthorization status = CalendarAuthorization::FullAccess;
    Events all;
    int queries = 0;
    bool isSlow = false; ///< then a query, or a request for access, waits for answer()

    void answer()
    {
        for (const auto &completion : std::exchange(m_waiting, {}))
            completion();
    }

    CalendarAuthorization authorization() override { return status; }
    void requestAccess(std::function<void(bool granted)> completion) override
    {
        reply([=, this] { completion(status == CalendarAuthorization::FullAccess); });
    }
    void events(Instant from, Instant to,
                std::function<void(const Events &events)> completion) override
    {
        ++queries;
        Events found;
        std::ranges::copy_if(all, std::back_inserter(found), [&](const CalendarEvent &event) {
            return !event.start || (*event.start >= from && *event.start < to);
        });
        reply([=] { completion(found); });
    }

private:
    void reply(const std::function<void()> &completion)
    {
        m_waiting.push_back(completion);
        if (!isSlow)
            answer();
    }

    std::vector<std::function<void()>> m_waiting;
};

/// A button in the menu bar that the test presses.
class InMemoryStatusItem final : public StatusItemPort {
public:
    std::optional<Rect> frame; ///< of the button, while it shows
    QString toolTip;

    bool isShown() const { return m_pressed != nullptr; }
    void press()
    {
        if (const auto pressed = m_pressed) // which may hide it
            pressed();
    }

    void show(std::function<void()> pressed) override { m_pressed = std::move(pressed); }
    void hide() override { m_pressed = {}; }
    void setToolTip(const QString &text) override { toolTip = text; }
    std::optional<Rect> buttonFrame() const override { return isShown() ? frame : std::nullopt; }

private:
    std::function<void()> m_pressed;
};

class InMemoryPlatform final : public Platform,
                               LoginItemPort,
                               ActivationPolicyPort,
                               ShellPort,
                               ApplicationLauncherPort,
                               DesktopPicturePort,
                               SystemPreferencesPort,
                               UpdaterPort {
public:
    InMemoryDesktop desktop;
    InMemoryScreens display;
    InMemoryHotKeys keys;
    InMemoryDefaults defaults;
    InMemoryCalendar events;
    InMemoryStatusItem menuBarItem;
    AlarmPort *alarms = nullptr;                    ///< a test that needs them brings its own
    std::set<QString> installed;                    ///< bundle identifiers
    QStringList opened;                             ///< the same
    QStringList pictures;                           ///< every desktop picture asked for
    std::map<QString, PreferenceValue> preferences; ///< by "domain key"
    int desktopSettingsOpened = 0;
    bool checksForUpdates = true;
    int updateChecks = 0;
    std::optional<bool> registeredAtLogin;
    std::optional<ActivationPolicy> policy;
    std::vector<WindowHandle> onAllDesktops;

    AccessibilityPort &accessibility() override { return desktop; }
    WindowListPort &windowList() override { return desktop; }
    WorkspacePort &workspace() override { return desktop; }
    ScreensPort &screens() override { return display; }
    HotKeyPort &hotKeys() override { return keys; }
    UserDefaultsPort &userDefaults() override { return defaults; }
    LoginItemPort &loginItem() override { return *this; }
    ActivationPolicyPort &activationPolicy() override { return *this; }
    ShellPort &shell() override { return *this; }
    StatusItemPort *statusItem() override { return &menuBarItem; }
    ApplicationLauncherPort &launcher() override { return *this; }
    DesktopPicturePort &desktopPicture() override { return *this; }
    CalendarPort &calendar() override { return events; }
    AlarmPort &alarm() override { return *alarms; }
    UpdaterPort *updater() override { return this; }
    SystemPreferencesPort *systemPreferences() override { return this; }
    std::vector<LinkedLibrary> libraries() const override { return {}; }
    void setLostCallback(std::function<void(const QString &)>) override {}

private:
    void setRegistered(bool registered) override { registeredAtLogin = registered; }
    std::optional<QString> locate(const QString &bundleID) override
    {
        return installed.contains(bundleID) ? std::optional(QStringLiteral("/apps/") + bundleID)
                                            : std::nullopt;
    }
    void open(const QString &location) override { opened << location.mid(6); }
    void setDesktopPicture(const QString &path) override { pictures << path; }
    std::optional<PreferenceValue> value(const QString &domain, const QString &key) override
    {
        const auto found = preferences.find(domain + u' ' + key);
        return found == preferences.end() ? std::nullopt : std::optional(found->second);
    }
    void openDesktopSettings() override { ++desktopSettingsOpened; }
    bool hasDock() const override { return true; }
    void setActivationPolicy(ActivationPolicy asked) override { policy = asked; }
    bool automaticallyChecksForUpdates() override { return checksForUpdates; }
    void setAutomaticallyChecksForUpdates(bool checks) override { checksForUpdates = checks; }
    void checkForUpdates() override { ++updateChecks; }
    bool isComposited() const override { return true; }
    bool hasEmbeddingTray() const override { return true; }
    void showOnAllDesktops(WindowHandle window) override { onAllDesktops.push_back(window); }
};

} // namespace Panorel
