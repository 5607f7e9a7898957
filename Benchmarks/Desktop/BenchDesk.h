#pragma once

#include "Desktop/RawDesktop.h"
#include "Desktop/Support/DesktopSession.h"

#include <random>

namespace Panorel::Bench {

/// A real desktop of two displays with many windows of some applications, ten each, every one at
/// its place and at rest.
class BenchDesk {
public:
    BenchDesk(const QString &windowManager, int count);

    const std::vector<Rect> &places() const { return m_places; }
    const std::vector<xcb_window_t> &bottomToTop() const { return m_bottomToTop; }
    const std::vector<xcb_window_t> &windows() const { return m_crowd.windows(); }

    /// Everything somewhere else, in another order and at rest: the same for the same round.
    /// Events of it that the event loop delivers are delivered.
    void scatter(int round, double width = 3840);

    /// How many windows are not at their place, to the pixel.
    int windowsOff() const;
    bool isStacked() const { return session.probe.stacking() == m_bottomToTop; }

    /// Whole milliseconds matter, fractions are kept.
    static double milliseconds(TimePoint from, TimePoint to)
    {
        return std::chrono::duration<double, std::milli>(to - from).count();
    }

    Desktop::DesktopSession session;
    RawDesktop raw;

private:
    void rest();
    void arrange(const std::vector<Rect> &frames, const std::vector<xcb_window_t> &bottomToTop);

    Desktop::TestCrowd m_crowd;
    std::vector<Rect> m_places;
    std::vector<xcb_window_t> m_bottomToTop;
};

} // namespace Panorel::Bench
