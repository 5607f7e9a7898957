#include "Panorel/Prefs.h"

#include "PanorelCore/JSON/PanorelJSON.h"
#include "PanorelCore/Records/ModelCoding.h"

namespace Panorel {

namespace {

namespace Key {
constexpr char enabled[] = "enabled";
constexpr char restoreAutomatically[] = "restoreAutomatically";
constexpr char alsoRestoreSizes[] = "alsoRestoreSizes";
constexpr char hasOnboarded[] = "hasOnboarded";
constexpr char showDockIcon[] = "showDockIcon";
constexpr char launchAtLogin[] = "launchAtLogin";
constexpr char placeNewApps[] = "placeNewApps";
constexpr char hideOthersOnSwitch[] = "hideOthersOnSwitch";
constexpr char displaySettleSeconds[] = "displaySettleSeconds";
constexpr char tipDismissed[] = "tipDismissed";
constexpr char stashHotKey[] = "stashHotKey";
constexpr char restoreHotKey[] = "restoreHotKey";
constexpr char saveLayoutHotKey[] = "saveLayoutHotKey";
constexpr char undoHotKey[] = "undoHotKey";
} // namespace Key

constexpr HotKeyCombo defaultStash{1, HotKeyCombo::option | HotKeyCombo::shift};
constexpr HotKeyCombo defaultRestore{15, HotKeyCombo::command | HotKeyCombo::shift};
constexpr HotKeyCombo defaultSaveLayout{1, HotKeyCombo::command | HotKeyCombo::shift};

bool readBoolean(const UserDefaultsPort &defaults, const char *key, bool otherwise)
{
    return defaults.boolean(QLatin1String(key)).value_or(otherwise);
}

} // namespace

Prefs::Prefs(UserDefaultsPort &defaults, ActivationPolicyPort &activationPolicy,
             LoginItemPort &loginItem)
    : m_defaults(defaults), m_activationPolicy(activationPolicy), m_loginItem(loginItem),
      m_enabled(readBoolean(defaults, Key::enabled, true)),
      m_restoreAutomatically(readBoolean(defaults, Key::restoreAutomatically, true)),
      m_alsoRestoreSizes(readBoolean(defaults, Key::alsoRestoreSizes, true)),
      m_hasOnboarded(readBoolean(defaults, Key::hasOnboarded, false)),
      m_showDockIcon(readBoolean(defaults, Key::showDockIcon, false)),
      m_launchAtLogin(readBoolean(defaults, Key::launchAtLogin, false)),
      m_placeNewApps(readBoolean(defaults, Key::placeNewApps, true)),
      m_hideOthersOnSwitch(readBoolean(defaults, Key::hideOthersOnSwitch, false)),
      m_displaySettleSeconds(
          defaults.number(QLatin1String(Key::displaySettleSeconds)).value_or(usualSettleSeconds)),
      m_tipDismissed(readBoolean(defaults, Key::tipDismissed, false))
{
    readHotKeys();
}

void Prefs::readHotKeys()
{
    // A stash key that can't be read gets its default, the other two then have none.
    const auto stash = load(Key::stashHotKey);
    m_stashHotKey = stash ? *stash : defaultStash;
    m_restoreHotKey = loadOrDefault(Key::restoreHotKey, defaultRestore);
    m_saveLayoutHotKey = loadOrDefault(Key::saveLayoutHotKey, defaultSaveLayout);
    m_undoHotKey = load(Key::undoHotKey);

    save(m_stashHotKey, Key::stashHotKey);
    save(m_restoreHotKey, Key::restoreHotKey);
    save(m_saveLayoutHotKey, Key::saveLayoutHotKey);
    save(m_undoHotKey, Key::undoHotKey);
}

std::optional<HotKeyCombo> Prefs::load(const char *key) const
{
    const auto stored = m_defaults.data(QLatin1String(key));
    if (!stored)
        return {};
    try {
        return PanorelJSON::decoder().decode<HotKeyCombo>(*stored);
    } catch (const DecodingError &) {
        return {};
    }
}

std::optional<HotKeyCombo> Prefs::loadOrDefault(const char *key, const HotKeyCombo &otherwise) const
{
    return m_defaults.contains(QLatin1String(key)) ? load(key) : otherwise;
}

void Prefs::save(const std::optional<HotKeyCombo> &combo, const char *key)
{
    if (combo)
        m_defaults.setData(QLatin1String(key), PanorelJSON::encoder().encode(*combo));
    else
        m_defaults.remove(QLatin1String(key));
}

void Prefs::assign(std::optional<HotKeyCombo> &member, const char *key,
                   const std::optional<HotKeyCombo> &combo)
{
    member = combo;
    save(combo, key);
    Q_EMIT changed();
}

void Prefs::assign(bool &member, const char *key, bool value)
{
    member = value;
    m_defaults.setBoolean(QLatin1String(key), value);
}

void Prefs::setEnabled(bool value)
{
    assign(m_enabled, Key::enabled, value);
    Q_EMIT changed();
}

void Prefs::setRestoreAutomatically(bool value)
{
    assign(m_restoreAutomatically, Key::restoreAutomatically, value);
    Q_EMIT changed();
}

void Prefs::setAlsoRestoreSizes(bool value)
{
    assign(m_alsoRestoreSizes, Key::alsoRestoreSizes, value);
    Q_EMIT changed();
}

void Prefs::setHasOnboarded(bool value)
{
    assign(m_hasOnboarded, Key::hasOnboarded, value);
    Q_EMIT changed();
}

void Prefs::setShowDockIcon(bool value)
{
    assign(m_showDockIcon, Key::showDockIcon, value);
    m_activationPolicy.setActivationPolicy(value ? ActivationPolicy::Regular
                                                 : ActivationPolicy::Accessory);
    Q_EMIT changed();
}

void Prefs::setLaunchAtLogin(bool value)
{
    assign(m_launchAtLogin, Key::launchAtLogin, value);
    m_loginItem.setRegistered(value);
    Q_EMIT changed();
}

void Prefs::setPlaceNewApps(bool value)
{
    assign(m_placeNewApps, Key::placeNewApps, value);
    Q_EMIT changed();
}

void Prefs::setHideOthersOnSwitch(bool value)
{
    assign(m_hideOthersOnSwitch, Key::hideOthersOnSwitch, value);
    Q_EMIT changed();
}

double Prefs::usableSettleSeconds() const
{
    const double stored = m_displaySettleSeconds;
    return stored >= 0 && stored <= longestSettleSeconds ? stored : usualSettleSeconds;
}

void Prefs::setDisplaySettleSeconds(double value)
{
    m_displaySettleSeconds = value;
    m_defaults.setNumber(QLatin1String(Key::displaySettleSeconds), value);
    Q_EMIT changed();
}

void Prefs::setTipDismissed(bool value)
{
    assign(m_tipDismissed, Key::tipDismissed, value);
    Q_EMIT changed();
}

void Prefs::setStashHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_stashHotKey, Key::stashHotKey, combo);
}

void Prefs::setRestoreHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_restoreHotKey, Key::restoreHotKey, combo);
}

void Prefs::setSaveLayoutHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_saveLayoutHotKey, Key::saveLayoutHotKey, combo);
}

void Prefs::setUndoHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_undoHotKey, Key::undoHotKey, combo);
}

} // namespace Panorel
