#include "Panorel/Prefs.h"

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
} // namespace Key

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
          defaults.number(QLatin1String(Key::displaySettleSeconds)).value_or(1.5)),
      m_tipDismissed(readBoolean(defaults, Key::tipDismissed, false))
{}

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

} // namespace Panorel
