#include "Support/InMemoryDesktop.h"

namespace Panorel {

namespace {

class Element final : public WindowElement {
public:
    explicit Element(int window) : number(window) {}
    const int number;
};

} // namespace

InMemoryDesktop::InMemoryDesktop()
{
    m_applications.push_back({ownPID, ActivationPolicy::Accessory,
                              QStringLiteral("org.panorel.Panorel"), QStringLiteral("Panorel"),
                              false});
}

ProcessIdentifier InMemoryDesktop::launch(const QString &bundleID,
                                          const std::optional<QString> &name,
                                          ActivationPolicy policy)
{
    m_applications.push_back({m_nextPID, policy, bundleID, name, false});
    return m_nextPID++;
}

int InMemoryDesktop::open(ProcessIdentifier pid, const QString &title, const Rect &frame)
{
    InMemoryWindow window;
    window.number = m_nextNumber++;
    window.pid = pid;
    window.title = title;
    window.frame = frame;
    m_windows.push_front(window);
    return window.number;
}

void InMemoryDesktop::close(int number)
{
    m_windows.remove_if([=](const InMemoryWindow &window) { return window.number == number; });
}

InMemoryWindow &InMemoryDesktop::window(int number)
{
    const auto found = std::ranges::find(m_windows, number, &InMemoryWindow::number);
    if (found == m_windows.end())
        qFatal("the test asked for window %d, which is gone", number);
    return *found;
}

InMemoryWindow *InMemoryDesktop::find(const WindowElementRef &element)
{
    const int number = static_cast<const Element &>(*element).number;
    const auto found = std::ranges::find(m_windows, number, &InMemoryWindow::number);
    return found == m_windows.end() ? nullptr : &*found;
}

std::vector<WindowAttributes> InMemoryDesktop::windows(ProcessIdentifier pid)
{
    std::vector<WindowAttributes> found;
    for (const InMemoryWindow &window : m_windows) {
        if (window.pid != pid || !trusted)
            continue;
        const auto element = std::make_shared<Element>(window.number);
        const FrameReading frame = readFrame(element);
        found.push_back({element, frame.position, frame.size, window.title, window.isMinimized,
                         window.isFullScreen});
    }
    return found;
}

void InMemoryDesktop::apply(const WindowElementRef &element, std::optional<Point> position,
                            std::optional<Size> size)
{
    InMemoryWindow *window = find(element);
    if (!window)
        return;
    if (window->vanishesWhenMoved)
        return close(window->number);
    window->hidesSize |= window->losesSizeWhenMoved;
    const QString suffix = QStringLiteral(" %1").arg(window->number);
    if (position) {
        journal.append(QStringLiteral("position") + suffix);
        if (!window->refusesMoves)
            window->frame =
                Rect::of({position->x + window->landsOff.x, position->y + window->landsOff.y},
                         window->frame.size());
    }
    if (size) {
        journal.append(QStringLiteral("size") + suffix);
        if (!window->refusesMoves)
            window->frame = Rect::of(window->frame.origin(), *size);
    }
}

FrameReading InMemoryDesktop::readFrame(const WindowElementRef &element)
{
    const InMemoryWindow *window = find(element);
    if (!window)
        return {};
    FrameReading reading;
    if (!window->hidesPosition)
        reading.position = window->frame.origin();
    if (!window->hidesSize)
        reading.size = window->frame.size();
    return reading;
}

void InMemoryDesktop::raise(const std::vector<WindowElementRef> &backToFront)
{
    for (const WindowElementRef &element : backToFront) {
        const InMemoryWindow *window = find(element);
        if (!window)
            continue;
        journal.append(QStringLiteral("raise %1").arg(window->number));
        const auto place = std::ranges::find(m_windows, window->number, &InMemoryWindow::number);
        m_windows.splice(m_windows.begin(), m_windows, place);
    }
}

WindowElementRef InMemoryDesktop::focusedWindow()
{
    return focused ? std::make_shared<Element>(*focused) : nullptr;
}

void InMemoryDesktop::focus(const WindowElementRef &element)
{
    if (const InMemoryWindow *window = find(element))
        focused = window->number;
}

void InMemoryDesktop::hide(ProcessIdentifier pid)
{
    std::ranges::find(m_applications, pid, &RunningApplication::pid)->isHidden = true;
}

void InMemoryDesktop::unhide(ProcessIdentifier pid)
{
    std::ranges::find(m_applications, pid, &RunningApplication::pid)->isHidden = false;
}

std::optional<std::vector<WindowListEntry>> InMemoryDesktop::onScreenWindows()
{
    if (duringReading)
        duringReading();
    if (!listReadable)
        return {};
    std::vector<WindowListEntry> entries;
    for (const InMemoryWindow &window : m_windows) {
        if (window.isMinimized || !window.isOnScreen)
            continue;
        const Rect bounds =
            Rect::of({window.frame.x + window.boundsOff.x, window.frame.y + window.boundsOff.y},
                     window.frame.size());
        entries.push_back({window.layer, window.pid, bounds, window.alpha});
    }
    return entries;
}

} // namespace Panorel
