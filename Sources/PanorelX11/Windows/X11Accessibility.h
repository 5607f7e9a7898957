#pragma once

#include "PanorelPorts/AccessibilityPort.h"
#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/HiddenWindows.h"
#include "PanorelX11/Windows/InputFocus.h"
#include "PanorelX11/Windows/RecentReadings.h"
#include "PanorelX11/Windows/WindowPlacer.h"
#include "PanorelX11/Windows/WindowStacker.h"

namespace Panorel::X11 {

/// Windows read and moved through the window manager.
class X11Accessibility final : public AccessibilityPort {
public:
    /// All of them outlive it.
    X11Accessibility(ClientRegistry &registry, const ClientReader &reader, RecentReadings &readings,
                     const WindowManager &windowManager, WindowPlacer &placer,
                     WindowStacker &stacker, InputFocus &focus, HiddenWindows &hidden);

    /// There is nothing to grant on X11, but without a window manager nobody would answer.
    bool isTrusted() const override;
    bool isTrustGranted() const override { return false; }
    void promptForTrust() override {}
    /// Front to back.
    std::vector<WindowAttributes> windows(ProcessIdentifier pid) override;
    void apply(const WindowElementRef &window, std::optional<Point> position,
               std::optional<Size> size) override;
    FrameReading readFrame(const WindowElementRef &window) override;
    void raise(const std::vector<WindowElementRef> &backToFront) override;
    WindowElementRef focusedWindow() override;
    void focus(const WindowElementRef &window) override;

private:
    ClientRegistry &m_registry;
    const ClientReader &m_reader;
    RecentReadings &m_readings;
    const WindowManager &m_windowManager;
    WindowPlacer &m_placer;
    WindowStacker &m_stacker;
    InputFocus &m_focus;
    HiddenWindows &m_hidden;
};

} // namespace Panorel::X11
