#pragma once

#include "Contracts/DesktopRig.h"

#include <utility>

namespace Panorel {

/// A suite about windows: what it opens, and how it finds that again through the ports.
class DesktopContract : public QObject {
protected:
    explicit DesktopContract(DesktopRig &rig) : m_rig(rig) {}

    using OnScreen = std::vector<std::pair<ProcessIdentifier, Rect>>;

    static inline const QString editor = QStringLiteral("editor");
    static inline const QString mail = QStringLiteral("mail");

    QString open(const QString &application, const Rect &frame)
    {
        m_open.append(m_rig.open(application, frame));
        return m_open.back();
    }
    void close(const QString &title)
    {
        m_rig.close(title);
        m_open.removeOne(title);
    }
    void closeAll()
    {
        for (const QString &title : std::exchange(m_open, {}))
            m_rig.close(title);
    }

    RunningApplication running(const QString &application)
    {
        for (const RunningApplication &candidate : m_rig.workspace().runningApplications()) {
            if (candidate.bundleID == m_rig.bundleID(application)
                && candidate.policy == ActivationPolicy::Regular)
                return candidate;
        }
        return {-1, {}, {}, {}, false};
    }
    ProcessIdentifier pidOf(const QString &application) { return running(application).pid; }

    WindowAttributes window(const QString &application, const QString &title)
    {
        for (const WindowAttributes &window : m_rig.accessibility().windows(pidOf(application))) {
            if (window.title == title)
                return window;
        }
        qFatal("no window \"%s\"", qPrintable(title));
    }

    /// Ordinary windows, front to back.
    OnScreen onScreen()
    {
        OnScreen ordinary;
        const auto list = m_rig.windowList().onScreenWindows();
        for (const WindowListEntry &entry : list.value()) {
            if (entry.layer == 0)
                ordinary.emplace_back(entry.ownerPID.value(), entry.bounds.value());
        }
        return ordinary;
    }

    DesktopRig &m_rig;

private:
    QStringList m_open;
};

} // namespace Panorel
