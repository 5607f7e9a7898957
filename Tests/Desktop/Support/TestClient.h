#pragma once

#include "Desktop/Support/ChildProcess.h"
#include "PanorelCore/Geometry.h"

#include <xcb/xcb.h>

#include <csignal>

namespace Panorel::Desktop {

/// What kinds of window there are, each with a trap of its own.
enum class ClientKind {
    Plain,         ///< nothing special
    StaticGravity, ///< positions mean the client's, not the frame's
    SouthEast,     ///< positions mean the frame's far corner
    Increments,    ///< xterm: its size goes in steps of characters
    Qt,            ///< a Qt 6 window
    GtkDecorated,  ///< GTK 3, draws its own title bar and, where composited, its shadow
    FixedDialog,   ///< of one size, and for many window managers not to be maximised
    Aspect,        ///< wants 4 to 3 and not less than 320 by 240
};

/// Another program with one window on the test desktop. The window is managed and at rest when
/// the constructor returns.
class TestClient {
public:
    /// The title of a GtkDecorated window ends in ".tar", only a plain one's need not be text.
    /// Options are for a plain window, "--class
    /// name" and the like.
    TestClient(ClientKind kind, const QByteArray &title, const QStringList &options = {});

    /// The path of the program that shows such a window.
    static QString program(ClientKind kind);

    xcb_window_t window() const { return m_window; }

    /// It kills itself, without a word to the window manager, as soon as it is next moved.
    void dieWhenMoved() { send(SIGUSR1); }
    /// It answers nothing until it goes on.
    void stop() { send(SIGSTOP); }
    void goOn() { send(SIGCONT); }

private:
    void send(int signal);
    explicit TestClient(const QStringList &command);

    ChildProcess m_process;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

/// Another program with many plain windows of several applications, all of them managed when the
/// constructor returns.
class TestCrowd {
public:
    TestCrowd(int windows, int applications);

    const std::vector<xcb_window_t> &windows() const { return m_windows; }

private:
    ChildProcess m_process;
    std::vector<xcb_window_t> m_windows;
};

} // namespace Panorel::Desktop
