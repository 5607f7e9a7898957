#pragma once

#include "PanorelCore/Geometry.h"
#include "PanorelMac/Support/CfRef.h"
#include "PanorelPorts/ProcessIdentifier.h"

#include <ApplicationServices/ApplicationServices.h>
#include <QString>

#include <optional>
#include <vector>

namespace Panorel::Mac {

/// One element of the accessibility interface, an application or a window, with typed attributes.
/// An attribute is absent where the element is gone, refuses, doesn't answer or answers with
/// something of another type. Only .cpp files include this.
class UIElement {
public:
    static UIElement application(ProcessIdentifier pid);
    static UIElement systemWide();

    /// How long this program waits for an answer of any other, each time it asks.
    static void setPatience(float seconds);

    ProcessIdentifier pid() const; ///< -1 where it can't be told
    std::optional<Point> point(CFStringRef attribute) const;
    std::optional<Size> size(CFStringRef attribute) const;
    std::optional<QString> text(CFStringRef attribute) const;
    std::optional<bool> boolean(CFStringRef attribute) const;
    std::optional<UIElement> element(CFStringRef attribute) const;
    std::vector<UIElement> elements(CFStringRef attribute) const;

    // All of them say whether the element took it.
    bool set(CFStringRef attribute, Point value) const;
    bool set(CFStringRef attribute, Size value) const;
    bool set(CFStringRef attribute, bool value) const;
    bool perform(CFStringRef action) const;

    /// Whether the application behind it answers at all; it is asked for its role.
    bool answers() const;

    bool operator==(const UIElement &other) const;

private:
    explicit UIElement(CfRef<AXUIElementRef> element) : m_element(std::move(element)) {}

    CfRef<CFTypeRef> copy(CFStringRef attribute) const;
    /// Unpacks a geometric value of exactly that kind.
    template <typename Value>
    std::optional<Value> unpacked(CFStringRef attribute, AXValueType type) const;
    bool setPacked(CFStringRef attribute, AXValueType type, const void *value) const;

    CfRef<AXUIElementRef> m_element;
};

} // namespace Panorel::Mac
