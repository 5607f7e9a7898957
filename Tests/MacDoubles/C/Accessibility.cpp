#include "MacDoubles/C/CfObjects.h"

#include <QPointF>
#include <QSizeF>

#include <algorithm>
#include <cstring>

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

/// A process and a window; its application, window 0; or the whole system, process 0.
using Element = std::pair<ProcessIdentifier, int>;

InMemoryDesktop &windows()
{
    return desktop().platform.desktop;
}

Element elementOf(AXUIElementRef element)
{
    return objectOf(element, CfType::Element).value.value<Element>();
}

AXUIElementRef makeElement(ProcessIdentifier pid, int number)
{
    return make<AXUIElementRef>(CfType::Element, QVariant::fromValue(Element(pid, number)));
}

const InMemoryWindow *find(int number)
{
    const auto &all = windows().allWindows();
    const auto found = std::ranges::find(all, number, &InMemoryWindow::number);
    return found == all.end() ? nullptr : &*found;
}

bool isRunning(ProcessIdentifier pid)
{
    const auto &all = windows().applications();
    return std::ranges::find(all, pid, &RunningApplication::pid) != all.end();
}

/// Whether what is asked of the element reaches anyone.
AXError reach(AXUIElementRef element, const QString &question)
{
    const auto [pid, number] = elementOf(element);
    AccessibilityManners &manners = desktop().manners;
    expectMainThread(qPrintable(question));
    if (pid == InMemoryDesktop::ownPID)
        addFault(QStringLiteral("accessibility was asked of this program itself: ") + question);
    if (manners.onQuestion)
        manners.onQuestion();
    if (!windows().trusted)
        return kAXErrorAPIDisabled;
    if (manners.hung.contains(pid)) {
        ++manners.waits;
        if (manners.timeOut <= 0)
            addFault(QStringLiteral("an application that hangs was asked without a time-out: ")
                     + question);
        return kAXErrorCannotComplete;
    }
    const bool isGone = number != 0 && !find(number);
    return isGone || (pid != 0 && !isRunning(pid)) ? kAXErrorInvalidUIElement : kAXErrorSuccess;
}

CFTypeRef windowList(ProcessIdentifier pid)
{
    std::vector<CFTypeRef> elements;
    for (const InMemoryWindow &window : windows().allWindows()) {
        if (window.pid == pid && !desktop().manners.isBlank)
            elements.push_back(makeElement(pid, window.number));
    }
    return makeObject(CfType::Array, {}, std::move(elements));
}

CFTypeRef ofApplication(ProcessIdentifier pid, const QString &attribute)
{
    if (attribute == u"AXWindows")
        return windowList(pid);
    if (attribute == u"AXRole")
        return toCf(QStringLiteral("AXApplication"));
    if (attribute == u"AXHidden")
        return toCf(
            std::ranges::find(windows().applications(), pid, &RunningApplication::pid)->isHidden);
    const auto focused = windows().focused;
    if (attribute == u"AXFocusedWindow" && focused && find(*focused)->pid == pid)
        return makeElement(pid, *focused);
    return nullptr;
}

CFTypeRef ofSystem(const QString &attribute)
{
    const auto focused = windows().focused;
    if (attribute != u"AXFocusedApplication" || !focused)
        return nullptr;
    return makeElement(find(*focused)->pid, 0);
}

CFTypeRef ofWindow(const InMemoryWindow &window, const QString &attribute)
{
    const FrameReading frame = windows().readFrame(InMemoryDesktop::element(window.number));
    if (attribute == u"AXPosition" && frame.position)
        return toCf(QPointF(frame.position->x, frame.position->y));
    if (attribute == u"AXSize" && frame.size)
        return toCf(QSizeF(frame.size->width, frame.size->height));
    if (attribute == u"AXTitle" && window.title)
        return toCf(*window.title);
    if (attribute == u"AXMinimized")
        return toCf(window.isMinimized);
    if (attribute == u"AXFullScreen")
        return toCf(window.isFullScreen);
    if (attribute == u"AXRole")
        return toCf(window.layer == 0 ? QStringLiteral("AXWindow")
                                      : QStringLiteral("AXScrollArea"));
    return nullptr;
}

AXError setOfApplication(ProcessIdentifier pid, const QString &attribute, CFTypeRef value)
{
    const auto main = desktop().manners.mainWindows.find(pid);
    if (attribute != u"AXFrontmost" || value != kCFBooleanTrue)
        return kAXErrorIllegalArgument;
    if (main != desktop().manners.mainWindows.end())
        windows().focus(InMemoryDesktop::element(main->second));
    return kAXErrorSuccess;
}

/// The type of variant that holds such a value: of the same layout.
QMetaType metaTypeOf(AXValueType type)
{
    return QMetaType(type == kAXValueTypeCGPoint ? QMetaType::QPointF : QMetaType::QSizeF);
}

AXError setOfWindow(AXUIElementRef element, const QString &attribute, CFTypeRef value)
{
    const auto [pid, number] = elementOf(element);
    const auto window = InMemoryDesktop::element(number);
    CGPoint point;
    CGSize size;
    if (attribute == u"AXMain" && value == kCFBooleanTrue)
        desktop().manners.mainWindows[pid] = number;
    else if (attribute == u"AXPosition"
             && AXValueGetValue(AXValueRef(value), kAXValueTypeCGPoint, &point))
        windows().apply(window, Point{point.x, point.y}, {});
    else if (attribute == u"AXSize"
             && AXValueGetValue(AXValueRef(value), kAXValueTypeCGSize, &size))
        windows().apply(window, {}, Size{size.width, size.height});
    else
        return kAXErrorIllegalArgument;
    return kAXErrorSuccess;
}

} // namespace

extern "C" {

const CFStringRef kAXTrustedCheckOptionPrompt = CFSTR("AXTrustedCheckOptionPrompt");

Boolean AXIsProcessTrusted()
{
    return windows().trusted;
}
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options)
{
    if (CFDictionaryGetValue(options, kAXTrustedCheckOptionPrompt) == kCFBooleanTrue)
        windows().promptForTrust();
    return windows().trusted;
}

CFTypeID AXUIElementGetTypeID()
{
    return CFTypeID(CfType::Element);
}
AXUIElementRef AXUIElementCreateApplication(pid_t pid)
{
    return makeElement(pid, 0);
}
AXUIElementRef AXUIElementCreateSystemWide()
{
    return makeElement(0, 0);
}

AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds)
{
    // Of one element alone it would not hold for those that this one lists.
    if (elementOf(element).first == 0)
        desktop().manners.timeOut = timeoutInSeconds;
    return kAXErrorSuccess;
}

AXError AXUIElementGetPid(AXUIElementRef element, pid_t *pid)
{
    *pid = elementOf(element).first;
    return kAXErrorSuccess;
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                      CFTypeRef *value)
{
    const auto [pid, number] = elementOf(element);
    const QString name = textOf(attribute);
    if (const AXError error = reach(element, name))
        return error;
    const auto &answers = desktop().manners.answers;
    if (const auto sown = answers.find({number, name}); sown != answers.end()) {
        if (sown->second.error == kAXErrorSuccess)
            *value = toCf(sown->second.value);
        return AXError(sown->second.error);
    }
    const CFTypeRef answer = number ? ofWindow(*find(number), name)
                             : pid  ? ofApplication(pid, name)
                                    : ofSystem(name);
    if (!answer)
        return kAXErrorNoValue;
    *value = answer;
    return kAXErrorSuccess;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value)
{
    const auto [pid, number] = elementOf(element);
    const QString name = textOf(attribute);
    if (const AXError error = reach(element, name))
        return error;
    return number ? setOfWindow(element, name, value) : setOfApplication(pid, name, value);
}

AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action)
{
    const auto [pid, number] = elementOf(element);
    if (const AXError error = reach(element, textOf(action)))
        return error;
    if (number == 0 || textOf(action) != u"AXRaise")
        return kAXErrorIllegalArgument;
    windows().raise({InMemoryDesktop::element(number)});
    return kAXErrorSuccess;
}

CFTypeID AXValueGetTypeID()
{
    return CFTypeID(CfType::Value);
}

AXValueRef AXValueCreate(AXValueType type, const void *valuePtr)
{
    return make<AXValueRef>(CfType::Value, QVariant(metaTypeOf(type), valuePtr));
}

Boolean AXValueGetValue(AXValueRef value, AXValueType type, void *valuePtr)
{
    const QVariant &packed = objectOf(value, CfType::Value).value;
    if (packed.metaType() != metaTypeOf(type))
        return false;
    std::memcpy(valuePtr, packed.constData(), std::size_t(packed.metaType().sizeOf()));
    return true;
}

} // extern "C"
