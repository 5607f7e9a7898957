#include "PanorelMac/Windows/UIElement.h"

#include "PanorelMac/Support/CfText.h"

namespace Panorel::Mac {

template <> inline CFTypeID cfTypeOf<AXUIElementRef>()
{
    return AXUIElementGetTypeID();
}
template <> inline CFTypeID cfTypeOf<AXValueRef>()
{
    return AXValueGetTypeID();
}

UIElement UIElement::application(ProcessIdentifier pid)
{
    return UIElement(CfRef<AXUIElementRef>::adopt(AXUIElementCreateApplication(pid)));
}

UIElement UIElement::systemWide()
{
    return UIElement(CfRef<AXUIElementRef>::adopt(AXUIElementCreateSystemWide()));
}

void UIElement::setPatience(float seconds)
{
    // Given to the system-wide element it holds for all of them.
    if (const UIElement all = systemWide(); all.m_element)
        AXUIElementSetMessagingTimeout(all.m_element.get(), seconds);
}

ProcessIdentifier UIElement::pid() const
{
    pid_t pid = -1;
    if (!m_element || AXUIElementGetPid(m_element.get(), &pid) != kAXErrorSuccess)
        return -1;
    return pid;
}

CfRef<CFTypeRef> UIElement::copy(CFStringRef attribute) const
{
    CFTypeRef value = nullptr;
    if (!m_element
        || AXUIElementCopyAttributeValue(m_element.get(), attribute, &value) != kAXErrorSuccess)
        return {};
    return CfRef<CFTypeRef>::adopt(value);
}

template <typename Value>
std::optional<Value> UIElement::unpacked(CFStringRef attribute, AXValueType type) const
{
    const auto held = copy(attribute);
    const auto packed = cfCast<AXValueRef>(held.get());
    Value value{};
    if (!packed || !AXValueGetValue(packed, type, &value))
        return {};
    return value;
}

std::optional<Point> UIElement::point(CFStringRef attribute) const
{
    const auto value = unpacked<CGPoint>(attribute, kAXValueTypeCGPoint);
    return value ? std::optional(Point{value->x, value->y}) : std::nullopt;
}

std::optional<Size> UIElement::size(CFStringRef attribute) const
{
    const auto value = unpacked<CGSize>(attribute, kAXValueTypeCGSize);
    return value ? std::optional(Size{value->width, value->height}) : std::nullopt;
}

std::optional<QString> UIElement::text(CFStringRef attribute) const
{
    const auto held = copy(attribute);
    const auto string = cfCast<CFStringRef>(held.get());
    return string ? std::optional(toQString(string)) : std::nullopt;
}

std::optional<bool> UIElement::boolean(CFStringRef attribute) const
{
    const auto held = copy(attribute);
    const auto value = cfCast<CFBooleanRef>(held.get());
    return value ? std::optional(bool(CFBooleanGetValue(value))) : std::nullopt;
}

std::optional<UIElement> UIElement::element(CFStringRef attribute) const
{
    const auto held = copy(attribute);
    const auto element = cfCast<AXUIElementRef>(held.get());
    return element ? std::optional(UIElement(CfRef<AXUIElementRef>::share(element))) : std::nullopt;
}

std::vector<UIElement> UIElement::elements(CFStringRef attribute) const
{
    const auto held = copy(attribute);
    const auto list = cfCast<CFArrayRef>(held.get());
    std::vector<UIElement> elements;
    for (CFIndex i = 0; list && i < CFArrayGetCount(list); ++i) {
        if (const auto element = cfCast<AXUIElementRef>(CFArrayGetValueAtIndex(list, i)))
            elements.push_back(UIElement(CfRef<AXUIElementRef>::share(element)));
    }
    return elements;
}

bool UIElement::setPacked(CFStringRef attribute, AXValueType type, const void *value) const
{
    const auto packed = CfRef<AXValueRef>::adopt(AXValueCreate(type, value));
    return m_element && packed
           && AXUIElementSetAttributeValue(m_element.get(), attribute, packed.get())
                  == kAXErrorSuccess;
}

bool UIElement::set(CFStringRef attribute, Point value) const
{
    const CGPoint point{value.x, value.y};
    return setPacked(attribute, kAXValueTypeCGPoint, &point);
}

bool UIElement::set(CFStringRef attribute, Size value) const
{
    const CGSize size{value.width, value.height};
    return setPacked(attribute, kAXValueTypeCGSize, &size);
}

bool UIElement::set(CFStringRef attribute, bool value) const
{
    return m_element
           && AXUIElementSetAttributeValue(m_element.get(), attribute,
                                           value ? kCFBooleanTrue : kCFBooleanFalse)
                  == kAXErrorSuccess;
}

bool UIElement::perform(CFStringRef action) const
{
    return m_element && AXUIElementPerformAction(m_element.get(), action) == kAXErrorSuccess;
}

bool UIElement::answers() const
{
    CFTypeRef role = nullptr;
    if (!m_element)
        return false;
    const AXError error = AXUIElementCopyAttributeValue(m_element.get(), kAXRoleAttribute, &role);
    const auto held = CfRef<CFTypeRef>::adopt(role);
    return error != kAXErrorCannotComplete;
}

bool UIElement::operator==(const UIElement &other) const
{
    return m_element && other.m_element && CFEqual(m_element.get(), other.m_element.get());
}

} // namespace Panorel::Mac
