#pragma once

#include "Desktop/Support/ChildProcess.h"
#include "PanorelCore/Geometry.h"
#include "Support/TestHome.h"

#include <memory>
#include <optional>
#include <vector>

namespace Panorel::Desktop {

/// One plugged-in output: its number (DUMMY0 to DUMMY15), where its pixels begin and how many.
struct Plugged {
    int output = 0;
    int x = 0;
    int y = 0;
    int width = 1920; ///< 1920 x 1080 or 1280 x 1024
    int height = 1080;
};

/// A private Xorg with RandR hot-plug and nothing on it, and a home of its own: while this lives,
/// DISPLAY, HOME and the XDG variables of the test process lead here. One at a time.
/// It begins with one display, output 0 at (0, 0).
class TestServer {
public:
    TestServer();
    ~TestServer();

    const TestHome home;
    static QString settings(); ///< where the program keeps them

    /// Exactly these outputs, in one change; the first is RandR's primary. All others are
    /// unplugged.
    void plug(const std::vector<Plugged> &outputs);

    /// What the output says of itself from now on. Is no display event. A flaw is one of those
    /// that set-edid knows.
    void setEdid(int output, const QString &name, int serial, const QString &flaw = {});

    qint64 processID() const { return m_process->processID(); }

    /// The server goes away under everybody's feet.
    void kill();

private:
    void startServer();

    std::unique_ptr<ChildProcess> m_process;
    std::vector<int> m_plugged;
    std::vector<QString> m_known; ///< outputs with a mode that they have been given
};

/// DUMMY0 left of DUMMY1.
std::vector<Plugged> sideBySide();

} // namespace Panorel::Desktop
