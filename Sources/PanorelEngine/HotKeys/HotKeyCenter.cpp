#include "PanorelEngine/HotKeys/HotKeyCenter.h"

namespace Panorel {

HotKeyCenter::HotKeyCenter(HotKeyPort &port) : m_port(port) {}

HotKeyCenter::~HotKeyCenter()
{
    if (m_installed)
        m_port.setPressedCallback({});
}

bool HotKeyCenter::registerHotKey(const QString &id, const QString &name, const HotKeyCombo &combo,
                                  const Handler &handler)
{
    unregister(id);
    if (!m_installed) {
        m_installed = true;
        m_port.setPressedCallback([this](HotKeyNumber number) { dispatch(number); });
    }
    auto registration = m_port.registerHotKey(combo, m_nextNumber);
    if (!registration)
        return false;
    m_actions[id] = {std::move(registration), m_nextNumber, combo, name, handler};
    ++m_nextNumber;
    return true;
}

void HotKeyCenter::unregister(const QString &id)
{
    m_actions.erase(id);
}

void HotKeyCenter::unregisterAll(const QString &prefix)
{
    std::erase_if(m_actions, [&](const auto &entry) { return entry.first.startsWith(prefix); });
}

QStringList HotKeyCenter::collisions(const HotKeyCombo &combo,
                                     const std::optional<QString> &excluding) const
{
    QStringList names;
    for (const auto &[id, action] : m_actions) {
        if (action.combo == combo && id != excluding && !action.name.isEmpty())
            names.append(action.name);
    }
    return names;
}

void HotKeyCenter::dispatch(HotKeyNumber number)
{
    for (const auto &[id, action] : m_actions) {
        if (action.number != number)
            continue;
        const Handler handler = action.handler; // it may register anew and so replace itself
        handler();
        return;
    }
}

} // namespace Panorel
