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

ProcessIdentifier InMemoryDesktop::add(const std::optional<QString> &bundleID,
                                       const std::optional<QString> &name, ActivationPolicy policy)
{
    m_applications.push_back({m_nextPID, policy, bundleID, name, false});
    return m_nextPID++;
}

ProcessIdentifier InMemoryDesktop::launch(const QString &bundleID,
                                          const std::optional<QString> &name,
                                          ActivationPolicy policy)
{
    const ProcessIdentifier pid = add(bundleID, name, policy);
    announceLaunch(pid);
    return pid;
}

void InMemoryDesktop::announceLaunch(ProcessIdentifier pid)
{
    const RunningApplication launched = *findApplication(pid);
    if (m_launched)
        m_launched(launched);
}

void InMemoryDesktop::quit(ProcessIdentifier pid)
{
    m_windows.remove_if([=](const InMemoryWindow &window) { return window.pid == pid; });
    std::erase_if(m_applications,
                  [=](const RunningApplication &running) { return running.pid == pid; });
    passFocusOn();
}

int InMemoryDesktop::open(ProcessIdentifier pid, const QString &title, const Rect &frame)
{
    InMemoryWindow window;
    window.number = m_nextNumber++;
    window.pid = pid;
    window.title = title;
    window.frame = frame;
    m_windows.push_front(window);
    focused = window.number;
    return window.number;
}

void InMemoryDesktop::close(int number)
{
    m_windows.remove_if([=](const InMemoryWindow &window) { return window.number == number; });
    passFocusOn();
}

void InMemoryDesktop::minimize(int number)
{
    window(number).isMinimized = true;
    passFocusOn();
}

void InMemoryDesktop::activate(int number)
{
    window(number).isMinimized = window(number).isHidden = false;
    moveToFront(number);
    focused = number;
}

void InMemoryDesktop::moveToFront(int number)
{
    m_windows.splice(m_windows.begin(), m_windows,
                     std::ranges::find(m_windows, number, &InMemoryWindow::number));
}

/// The frontmost window that can have it gets the focus of one that can't keep it.
void InMemoryDesktop::passFocusOn()
{
    const auto canHaveIt = [](const InMemoryWindow &window) {
        return window.isVisible() && window.layer == 0;
    };
    const auto holder = std::ranges::find_if(
        m_windows, [this](const InMemoryWindow &window) { return window.number == focused; });
    if (holder != m_windows.end() && canHaveIt(*holder))
        return;
    const auto next = std::ranges::find_if(m_windows, canHaveIt);
    focused = next == m_windows.end() ? std::nullopt : std::optional(next->number);
}

InMemoryWindow &InMemoryDesktop::window(int number)
{
    const auto found = std::ranges::find(m_windows, number, &InMemoryWindow::number);
    if (found == m_windows.end())
        qFatal("the test asked for window %d, which is gone", number);
    return *found;
}

WindowElementRef InMemoryDesktop::element(int number)
{
    return std::make_shared<Element>(number);
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
        const WindowElementRef handle = element(window.number);
        const FrameReading frame = readFrame(handle);
        found.push_back({handle, frame.position, frame.size, window.title, window.isMinimized,
                         window.isFullScreen});
    }
    return found;
}

void InMemoryDesktop::apply(const WindowElementRef &element, std::optional<Point> position,
                            std::optional<Size> size)
{
    if (duringMove)
        duringMove();
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
        moveToFront(window->number);
    }
}

WindowElementRef InMemoryDesktop::focusedWindow()
{
    const bool isOwn = focused && window(*focused).pid == ownPID;
    return focused && !isOwn ? element(*focused) : nullptr;
}

void InMemoryDesktop::focus(const WindowElementRef &element)
{
    const InMemoryWindow *window = find(element);
    if (!window || !window->isVisible())
        return;
    journal.append(QStringLiteral("focus %1").arg(window->number));
    focused = window->number;
}

RunningApplication *InMemoryDesktop::findApplication(ProcessIdentifier pid)
{
    const auto found = std::ranges::find(m_applications, pid, &RunningApplication::pid);
    return found == m_applications.end() ? nullptr : &*found;
}

std::vector<RunningApplication> InMemoryDesktop::runningApplications()
{
    // A window that the user has brought back shows that the application isn't hidden any more.
    for (const InMemoryWindow &window : m_windows) {
        if (RunningApplication *owner = findApplication(window.pid); owner && window.isVisible())
            owner->isHidden = false;
    }
    return m_applications;
}

void InMemoryDesktop::hide(ProcessIdentifier pid)
{
    journal.append(QStringLiteral("hide %1").arg(pid));
    RunningApplication *application = findApplication(pid);
    if (!application || refusingToHide.contains(pid))
        return;
    application->isHidden = true;
    for (InMemoryWindow &window : m_windows)
        window.isHidden |= window.pid == pid && !window.isMinimized;
    passFocusOn();
}

void InMemoryDesktop::unhide(ProcessIdentifier pid)
{
    journal.append(QStringLiteral("unhide %1").arg(pid));
    if (RunningApplication *application = findApplication(pid))
        application->isHidden = false;
    for (InMemoryWindow &window : m_windows)
        window.isHidden &= window.pid != pid;
}

std::optional<std::vector<WindowListEntry>> InMemoryDesktop::onScreenWindows()
{
    if (duringReading)
        duringReading();
    if (!listReadable)
        return {};
    std::vector<WindowListEntry> entries;
    for (const InMemoryWindow &window : m_windows) {
        if (!window.isVisible() || !window.isOnScreen)
            continue;
        const Rect bounds =
            Rect::of({window.frame.x + window.boundsOff.x, window.frame.y + window.boundsOff.y},
                     window.frame.size());
        entries.push_back({window.layer, window.pid, bounds, window.alpha});
    }
    return entries;
}

} // namespace Panorel
