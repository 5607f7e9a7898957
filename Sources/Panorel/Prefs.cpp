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

} // namespace

Prefs::Prefs(UserDefaultsPort &defaults, ActivationPolicyPort &activationPolicy,
             LoginItemPort &loginItem)
    : m_defaults(defaults), m_activationPolicy(activationPolicy), m_loginItem(loginItem)
{
    const auto read = [&defaults](bool &member, const char *key) {
        member = defaults.boolean(QLatin1String(key)).value_or(member);
    };
    read(m_values.enabled, Key::enabled);
    read(m_values.restoreAutomatically, Key::restoreAutomatically);
    read(m_values.alsoRestoreSizes, Key::alsoRestoreSizes);
    read(m_values.hasOnboarded, Key::hasOnboarded);
    read(m_values.showDockIcon, Key::showDockIcon);
    read(m_values.launchAtLogin, Key::launchAtLogin);
    read(m_values.placeNewApps, Key::placeNewApps);
    read(m_values.hideOthersOnSwitch, Key::hideOthersOnSwitch);
    m_values.displaySettleSeconds =
        defaults.number(QLatin1String(Key::displaySettleSeconds)).value_or(usualSettleSeconds);
    read(m_values.tipDismissed, Key::tipDismissed);
    readHotKeys();
}

void Prefs::readHotKeys()
{
    // A stash key that can't be read gets its default, the other two then have none.
    const auto stash = load(Key::stashHotKey);
    m_values.stashHotKey = stash ? *stash : defaultStash;
    m_values.restoreHotKey = loadOrDefault(Key::restoreHotKey, defaultRestore);
    m_values.saveLayoutHotKey = loadOrDefault(Key::saveLayoutHotKey, defaultSaveLayout);
    m_values.undoHotKey = load(Key::undoHotKey);

    save(m_values.stashHotKey, Key::stashHotKey);
    save(m_values.restoreHotKey, Key::restoreHotKey);
    save(m_values.saveLayoutHotKey, Key::saveLayoutHotKey);
    save(m_values.undoHotKey, Key::undoHotKey);
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
    assign(m_values.enabled, Key::enabled, value);
    Q_EMIT changed();
}

void Prefs::setRestoreAutomatically(bool value)
{
    assign(m_values.restoreAutomatically, Key::restoreAutomatically, value);
    Q_EMIT changed();
}

void Prefs::setAlsoRestoreSizes(bool value)
{
    assign(m_values.alsoRestoreSizes, Key::alsoRestoreSizes, value);
    Q_EMIT changed();
}

void Prefs::setHasOnboarded(bool value)
{
    assign(m_values.hasOnboarded, Key::hasOnboarded, value);
    Q_EMIT changed();
}

void Prefs::setShowDockIcon(bool value)
{
    assign(m_values.showDockIcon, Key::showDockIcon, value);
    m_activationPolicy.setActivationPolicy(value ? ActivationPolicy::Regular
                                                 : ActivationPolicy::Accessory);
    Q_EMIT changed();
}

void Prefs::setLaunchAtLogin(bool value)
{
    assign(m_values.launchAtLogin, Key::launchAtLogin, value);
    m_loginItem.setRegistered(value);
    Q_EMIT changed();
}

void Prefs::setPlaceNewApps(bool value)
{
    assign(m_values.placeNewApps, Key::placeNewApps, value);
    Q_EMIT changed();
}

void Prefs::setHideOthersOnSwitch(bool value)
{
    assign(m_values.hideOthersOnSwitch, Key::hideOthersOnSwitch, value);
    Q_EMIT changed();
}

double Prefs::usableSettleSeconds() const
{
    const double stored = m_values.displaySettleSeconds;
    return stored >= 0 && stored <= longestSettleSeconds ? stored : usualSettleSeconds;
}

void Prefs::setDisplaySettleSeconds(double value)
{
    m_values.displaySettleSeconds = value;
    m_defaults.setNumber(QLatin1String(Key::displaySettleSeconds), value);
    Q_EMIT changed();
}

void Prefs::setTipDismissed(bool value)
{
    assign(m_values.tipDismissed, Key::tipDismissed, value);
    Q_EMIT changed();
}

void Prefs::setStashHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_values.stashHotKey, Key::stashHotKey, combo);
}

void Prefs::setRestoreHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_values.restoreHotKey, Key::restoreHotKey, combo);
}

void Prefs::setSaveLayoutHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_values.saveLayoutHotKey, Key::saveLayoutHotKey, combo);
}

void Prefs::setUndoHotKey(const std::optional<HotKeyCombo> &combo)
{
    assign(m_values.undoHotKey, Key::undoHotKey, combo);
}

PreferenceValues Prefs::values() const
{
    PreferenceValues values = m_values;
    values.displaySettleSeconds = usableSettleSeconds();
    return values;
}

void Prefs::assignAll(const PreferenceValues &values)
{
    setEnabled(values.enabled);
    setRestoreAutomatically(values.restoreAutomatically);
    setAlsoRestoreSizes(values.alsoRestoreSizes);
    setHasOnboarded(values.hasOnboarded);
    setShowDockIcon(values.showDockIcon);
    setLaunchAtLogin(values.launchAtLogin);
    setPlaceNewApps(values.placeNewApps);
    setHideOthersOnSwitch(values.hideOthersOnSwitch);
    setDisplaySettleSeconds(values.displaySettleSeconds);
    setTipDismissed(values.tipDismissed);
    setStashHotKey(values.stashHotKey);
    setRestoreHotKey(values.restoreHotKey);
    setSaveLayoutHotKey(values.saveLayoutHotKey);
    setUndoHotKey(values.undoHotKey);
}

} // namespace Panorel
