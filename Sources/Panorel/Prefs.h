#pragma once

#include "PanorelCore/Records/PreferenceValues.h"
#include "PanorelPorts/ApplicationPorts.h"
#include "PanorelPorts/UserDefaultsPort.h"

#include <QObject>

#include <optional>

namespace Panorel {

/// The user's settings. They are read once, at creation; every assignment is written through,
/// carries out its side effect and emits changed(), also when it assigns the value that is there.
/// There is one in the program, made by main. Main thread only.
class Prefs : public QObject {
    Q_OBJECT

public:
    static constexpr double usualSettleSeconds = 1.5;
    static constexpr double longestSettleSeconds = 60;

    /// The ports must outlive it. Of the defaults only the hot keys are written: the database
    /// then shows what is in force.
    Prefs(UserDefaultsPort &defaults, ActivationPolicyPort &activationPolicy,
          LoginItemPort &loginItem);

    /// Learning and automatic restoring as a whole. Default: on.
    bool enabled() const { return m_values.enabled; }
    /// Restore when the displays have changed. Default: on.
    bool restoreAutomatically() const { return m_values.restoreAutomatically; }
    /// Restores, scenes and stash set sizes too. Default: on.
    bool alsoRestoreSizes() const { return m_values.alsoRestoreSizes; }
    /// The welcome window was finished. Default: off.
    bool hasOnboarded() const { return m_values.hasOnboarded; }
    /// Show the application in the Dock, where there is one. Default: off.
    bool showDockIcon() const { return m_values.showDockIcon; }
    /// Start at login. Default: off.
    bool launchAtLogin() const { return m_values.launchAtLogin; }
    /// Place the windows of newly launched applications. Default: on.
    bool placeNewApps() const { return m_values.placeNewApps; }
    /// Hide other applications when a scene is applied. Default: off.
    bool hideOthersOnSwitch() const { return m_values.hideOthersOnSwitch; }
    /// How long the displays must be quiet before a window moves, as stored, which may be anything.
    /// Default: 1.5.
    double displaySettleSeconds() const { return m_values.displaySettleSeconds; }
    /// The same as it is to be used: what is no number from 0 to 60 counts as the default.
    double usableSettleSeconds() const;
    /// The panel's hot-key tip was closed. Default: off.
    bool tipDismissed() const { return m_values.tipDismissed; }

    // The global keys of the fixed actions; absent: none. A key that is cleared comes back with
    // its default at the next launch, but for undo, which has none. Assigning registers nothing:
    // AppController::reloadHotKeys() does.
    const std::optional<HotKeyCombo> &stashHotKey() const { return m_values.stashHotKey; }
    const std::optional<HotKeyCombo> &restoreHotKey() const { return m_values.restoreHotKey; }
    const std::optional<HotKeyCombo> &saveLayoutHotKey() const { return m_values.saveLayoutHotKey; }
    const std::optional<HotKeyCombo> &undoHotKey() const { return m_values.undoHotKey; }

    void setEnabled(bool value);
    void setRestoreAutomatically(bool value);
    void setAlsoRestoreSizes(bool value);
    void setHasOnboarded(bool value);
    void setShowDockIcon(bool value);
    void setLaunchAtLogin(bool value);
    void setPlaceNewApps(bool value);
    void setHideOthersOnSwitch(bool value);
    void setDisplaySettleSeconds(double value);
    void setTipDismissed(bool value);
    void setStashHotKey(const std::optional<HotKeyCombo> &combo);
    void setRestoreHotKey(const std::optional<HotKeyCombo> &combo);
    void setSaveLayoutHotKey(const std::optional<HotKeyCombo> &combo);
    void setUndoHotKey(const std::optional<HotKeyCombo> &combo);

    /// All of them, as they are used.
    PreferenceValues values() const;
    /// One after the other, each with its side effect.
    void assignAll(const PreferenceValues &values);

Q_SIGNALS:
    void changed();

private:
    void assign(bool &member, const char *key, bool value);
    void assign(std::optional<HotKeyCombo> &member, const char *key,
                const std::optional<HotKeyCombo> &combo);
    void readHotKeys();
    std::optional<HotKeyCombo> load(const char *key) const;
    std::optional<HotKeyCombo> loadOrDefault(const char *key, const HotKeyCombo &otherwise) const;
    void save(const std::optional<HotKeyCombo> &combo, const char *key);

    UserDefaultsPort &m_defaults;
    ActivationPolicyPort &m_activationPolicy;
    LoginItemPort &m_loginItem;
    PreferenceValues m_values;
};

} // namespace Panorel
