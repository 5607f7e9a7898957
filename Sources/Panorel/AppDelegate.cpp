#include "Panorel/AppDelegate.h"

#include "Panorel/Panel/VisibleFrame.h"
#include "Panorel/Prefs.h"

#include <QGuiApplication>
#include <QScreen>

namespace Panorel {

AppDelegate::AppDelegate(const AppServices &services)
    : m_services(services), m_sessionEnd([this] { prepareToEnd(); })
{}

AppDelegate::~AppDelegate()
{
    // The controller takes its actions from the panel's rows: the rows go first.
    m_commands.reset();
    m_statusItem.reset();
    m_panel.reset();
    m_windows.reset();
    m_controller.reset();
}

void AppDelegate::applicationDidFinishLaunching()
{
    Platform &platform = m_services.platform;
    Prefs &prefs = m_services.prefs;
    PermissionCenter permission(platform.accessibility());
    platform.activationPolicy().setActivationPolicy(
        prefs.showDockIcon() ? ActivationPolicy::Regular : ActivationPolicy::Accessory);
    m_panelModel.setHasPermission(permission.hasAccessibility());
    m_panelModel.onQuit = [] { QCoreApplication::quit(); };

    m_panel.emplace(m_panelModel, prefs, platform.shell(), [&platform](const HotKeyCombo &combo) {
        return platform.hotKeys().text(combo);
    });
    m_statusItem.emplace(m_panelModel, *m_panel, platform.shell(), platform.statusItem(),
                         [this](const QPoint &point) { return visibleFrameAt(point); });
    m_controller.emplace(m_panelModel, m_services);
    m_windows.emplace(*m_controller, m_panelModel, m_services, [this] { openPanel(); });
    m_commands.emplace(*m_controller, m_panelModel, m_services, [this] { m_windows->refresh(); });
    if (!prefs.hasOnboarded())
        m_windows->welcome();
    else if (!permission.hasAccessibility())
        permission.promptAccessibility();
}

void AppDelegate::openPanel()
{
    m_statusItem->openPanel();
}

void AppDelegate::prepareToEnd()
{
    if (m_controller)
        m_controller->prepareToEnd();
    if (m_windows)
        m_windows->closeWithoutAsking();
}

QRect AppDelegate::visibleFrameAt(const QPoint &point) const
{
    const QScreen *screen = QGuiApplication::screenAt(point);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    // Null for a moment when the last display leaves.
    return screen ? visibleFrameOf(screen->geometry(), m_services.displayWatcher.currentDisplays())
                  : QRect();
}

} // namespace Panorel
