#pragma once

#include "PanorelCore/Records/Models.h"
#include "PanorelPorts/HotKeyPort.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <optional>

namespace Panorel {

/// Which global key combination triggers which action. Actions are known by an id of the caller's
/// choice. There is one centre in the program, made by main. Main thread only.
class HotKeyCenter {
public:
    using Handler = std::function<void()>;

    /// The port must outlive the centre.
    explicit HotKeyCenter(HotKeyPort &port);
    ~HotKeyCenter();

    /// Gives the action the combination in place of any it had. False where the platform refuses;
    /// then the action has none, not even the earlier one. Two actions may share a combination:
    /// that is for collisions() to tell and for the user to decide.
    bool registerHotKey(const QString &id, const QString &name, const HotKeyCombo &combo,
                        const Handler &handler);

    void unregister(const QString &id);

    /// Of every action whose id begins so.
    void unregisterAll(const QString &prefix);

    /// The names of the other actions that have the combination.
    QStringList collisions(const HotKeyCombo &combo,
                           const std::optional<QString> &excluding = {}) const;

private:
    struct Action {
        std::unique_ptr<HotKeyRegistration> registration;
        HotKeyNumber number = 0;
        HotKeyCombo combo;
        QString name;
        Handler handler;
    };

    void dispatch(HotKeyNumber number);

    HotKeyPort &m_port;
    std::map<QString, Action> m_actions;
    HotKeyNumber m_nextNumber = 1; ///< never handed out twice, so a late press reaches nobody else
    bool m_installed = false;
};

} // namespace Panorel
