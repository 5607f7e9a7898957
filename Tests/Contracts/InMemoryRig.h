#pragma once

#include "Contracts/DesktopRig.h"
#include "Contracts/HotKeysRig.h"
#include "Support/InMemoryPlatform.h"

#include <map>

namespace Panorel {

/// Furnishes the in-memory desktop. Rigs of ports that stand on it give those instead of the
/// in-memory ones.
class InMemoryRig : public DesktopRig {
public:
    /// The platform outlives the rig.
    explicit InMemoryRig(InMemoryPlatform &furnished) : platform(furnished)
    {
        platform.display.plug(QStringLiteral("Main"), {0, 0, 1920, 1080}, 1);
    }

    InMemoryPlatform &platform;

    AccessibilityPort &accessibility() override { return platform.desktop; }
    WindowListPort &windowList() override { return platform.desktop; }
    WorkspacePort &workspace() override { return platform.desktop; }
    ScreensPort &screens() override { return platform.display; }

    QString open(const QString &application, const Rect &frame) override
    {
        const bool isNew = !m_pids.contains(application);
        if (isNew)
            m_pids[application] = platform.desktop.add(bundleID(application), application);
        const QString title = QStringLiteral("%1 %2").arg(application).arg(m_numbers.size() + 1);
        m_numbers[title] = platform.desktop.open(m_pids[application], title, frame);
        if (isNew)
            platform.desktop.announceLaunch(m_pids[application]);
        return title;
    }
    void close(const QString &title) override
    {
        const QString application = title.section(u' ', 0, 0);
        const auto pid = m_pids.at(application);
        platform.desktop.close(m_numbers.at(title));
        if (!platform.desktop.windows(pid).empty())
            return;
        platform.desktop.quit(pid);
        m_pids.erase(application);
    }
    void minimize(const QString &title) override { platform.desktop.minimize(m_numbers.at(title)); }
    void restore(const QString &title) override { platform.desktop.activate(m_numbers.at(title)); }
    bool isOnScreen(const QString &title) override { return window(title).isVisible(); }
    void makeFullScreen(const QString &title) override { window(title).isFullScreen = true; }
    QString bundleID(const QString &application) const override { return application; }
    QString focused() override
    {
        const auto number = platform.desktop.focused;
        return number ? platform.desktop.window(*number).title.value() : QString();
    }
    void plugSecondDisplay() override
    {
        platform.display.plug(QStringLiteral("Second"), {1920, 0, 1280, 1024}, 2);
        platform.display.announceChange();
    }
    void unplugSecondDisplay() override
    {
        platform.display.unplug(QStringLiteral("Second"));
        platform.display.announceChange();
    }

private:
    InMemoryWindow &window(const QString &title)
    {
        return platform.desktop.window(m_numbers.at(title));
    }

    std::map<QString, ProcessIdentifier> m_pids;
    std::map<QString, int> m_numbers;
};

class InMemoryKeyboard : public HotKeysRig {
public:
    explicit InMemoryKeyboard(InMemoryHotKeys &held) : keys(held) {}

    InMemoryHotKeys &keys;

    HotKeyPort &hotKeys() override { return keys; }
    void press(const HotKeyCombo &combo) override { keys.press(combo); }
    bool takeByAnother(const HotKeyCombo &combo) override
    {
        if (std::ranges::any_of(keys.registered,
                                [&](const auto &it) { return it.second == combo; }))
            return false;
        keys.refused.push_back(combo);
        return true;
    }
    void endTheOther() override { keys.refused.clear(); }
};

} // namespace Panorel
