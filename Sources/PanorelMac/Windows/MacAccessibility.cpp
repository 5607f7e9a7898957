#include "PanorelMac/Windows/MacAccessibility.h"

#include "PanorelMac/Support/CfText.h"
#include "PanorelMac/Windows/UIElement.h"

#include <algorithm>

namespace Panorel::Mac {

namespace {

/// An application that runs answers within milliseconds; one that hangs shouldn't hang this one.
constexpr float patience = 0.5f;

class MacWindow final : public WindowElement {
public:
    explicit MacWindow(UIElement window) : element(std::move(window)) {}
    const UIElement element;
};

/// Null for a handle that this port did not make.
const UIElement *elementOf(const WindowElementRef &window)
{
    const auto *mac = dynamic_cast<const MacWindow *>(window.get());
    return mac ? &mac->element : nullptr;
}

} // namespace

MacAccessibility::MacAccessibility(ProcessIdentifier own) : m_own(own)
{
    UIElement::setPatience(patience);
}

bool MacAccessibility::isTrusted() const
{
    return AXIsProcessTrusted();
}

void MacAccessibility::promptForTrust()
{
    const void *key = kAXTrustedCheckOptionPrompt;
    const void *value = kCFBooleanTrue;
    const auto options = CfRef<CFDictionaryRef>::adopt(
        CFDictionaryCreate(kCFAllocatorDefault, &key, &value, 1, &kCFTypeDictionaryKeyCallBacks,
                           &kCFTypeDictionaryValueCallBacks));
    AXIsProcessTrustedWithOptions(options.get());
}

std::vector<WindowAttributes> MacAccessibility::windows(ProcessIdentifier pid)
{
    if (pid == m_own)
        return {};
    const UIElement application = UIElement::application(pid);
    std::vector<WindowAttributes> windows;
    for (const UIElement &window : application.elements(kAXWindowsAttribute)) {
        const auto position = window.point(kAXPositionAttribute);
        const auto size = window.size(kAXSizeAttribute);
        // Each question to an application that has begun to hang would wait in vain.
        if (!(position && size) && !application.answers())
            break;
        windows.push_back({std::make_shared<MacWindow>(window), position, size,
                           window.text(kAXTitleAttribute), window.boolean(kAXMinimizedAttribute),
                           window.boolean(CFSTR("AXFullScreen"))});
    }
    return windows;
}

void MacAccessibility::apply(const WindowElementRef &window, std::optional<Point> position,
                             std::optional<Size> size)
{
    const UIElement *element = elementOf(window);
    if (element && position)
        element->set(kAXPositionAttribute, *position);
    if (element && size)
        element->set(kAXSizeAttribute, *size);
}

FrameReading MacAccessibility::readFrame(const WindowElementRef &window)
{
    const UIElement *element = elementOf(window);
    const auto position = element ? element->point(kAXPositionAttribute) : std::nullopt;
    const auto size = position ? element->size(kAXSizeAttribute) : std::nullopt;
    return size ? FrameReading{position, size} : FrameReading{};
}

void MacAccessibility::raise(const std::vector<WindowElementRef> &backToFront)
{
    for (const WindowElementRef &window : backToFront) {
        if (const UIElement *element = elementOf(window))
            element->perform(kAXRaiseAction);
    }
}

WindowElementRef MacAccessibility::focusedWindow()
{
    const auto application = UIElement::systemWide().element(kAXFocusedApplicationAttribute);
    if (!application || application->pid() == m_own)
        return nullptr;
    const auto window = application->element(kAXFocusedWindowAttribute);
    // The desktop of the file manager can have the focus and is a scroll area.
    if (!window || window->text(kAXRoleAttribute) != toQString(kAXWindowRole))
        return nullptr;
    return std::make_shared<MacWindow>(*window);
}

void MacAccessibility::focus(const WindowElementRef &window)
{
    const UIElement *element = elementOf(window);
    if (!element || element->pid() == m_own)
        return;
    const UIElement application = UIElement::application(element->pid());
    // A window on another Space is not listed, and to focus it would switch to that one.
    const auto listed = application.elements(kAXWindowsAttribute);
    if (std::ranges::find(listed, *element) == listed.end()
        || element->boolean(kAXMinimizedAttribute) == true
        || application.boolean(kAXHiddenAttribute) == true)
        return;
    if (element->set(kAXMainAttribute, true))
        application.set(kAXFrontmostAttribute, true);
}

} // namespace Panorel::Mac
