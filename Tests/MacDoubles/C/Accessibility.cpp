#include "MacDoubles/C/CfObjects.h"
#include "MacDoubles/Desktop/MacDesktop.h"

#include <QRectF>

#include <algorithm>
#include <cstring>

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

/// A window; its application, number 0; or the whole system, process 0.
struct AxElement final : CfObject {
    AxElement(ProcessIdentifier process, int window)
        : CfObject(CfType::Element), pid(process), number(window)
    {}
    QString description() const override
    {
        return QStringLiteral("AXUIElement of process %1, window %2").arg(pid).arg(number);
    }
    bool equals(const CfObject &other) const override
    {
        if (other.type != CfType::Element)
            return false;
        const auto &element = static_cast<const AxElement &>(other);
        return element.pid == pid && element.number == number;
    }

    const ProcessIdentifier pid;
    const int number;
};

InMemoryDesktop &windows()
{
    return desktop().platform.desktop;
}

const AxElement &elementOf(AXUIElementRef element)
{
    return objectOf<AxElement>(element, CfType::Element);
}

AXUIElementRef makeElement(ProcessIdentifier pid, int number)
{
    return make<AXUIElementRef, AxElement>(pid, number);
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
AXError reach(const AxElement &element, const QString &question)
{
    AccessibilityManners &manners = desktop().manners;
    if (!isMainThread())
        addFault(QStringLiteral("accessibility was used off the main thread: ") + question);
    if (element.pid == InMemoryDesktop::ownPID)
        addFault(QStringLiteral("accessibility was asked of this program itself: ") + question);
    if (manners.onQuestion)
        manners.onQuestion(question);
    if (!windows().trusted)
        return kAXErrorAPIDisabled;
    if (manners.hung.contains(element.pid)) {
        ++manners.waits;
        if (manners.timeOut <= 0)
            addFault(QStringLiteral("an application that hangs was asked without a time-out: ")
                     + question);
        return kAXErrorCannotComplete;
    }
    const bool isGone = element.number != 0 && !find(element.number);
    return isGone || (element.pid != 0 && !isRunning(element.pid)) ? kAXErrorInvalidUIElement
                                                                   : kAXErrorSuccess;
}

CFTypeRef windowList(ProcessIdentifier pid)
{
    std::vector<CFTypeRef> elements;
    for (const InMemoryWindow &window : windows().allWindows()) {
        if (window.pid == pid && !desktop().manners.isBlank)
            elements.push_back(makeElement(pid, window.number));
    }
    return make<CFTypeRef, CfArray>(std::move(elements));
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
        return kAXErrorAttributeUnsupported;
    if (main != desktop().manners.mainWindows.end())
        windows().focus(InMemoryDesktop::element(main->second));
    return kAXErrorSuccess;
}

AXError setOfWindow(const AxElement &element, const QString &attribute, CFTypeRef value)
{
    const auto window = InMemoryDesktop::element(element.number);
    if (attribute == u"AXMain" && value == kCFBooleanTrue) {
        desktop().manners.mainWindows[element.pid] = element.number;
        return kAXErrorSuccess;
    }
    if (attribute != u"AXPosition" && attribute != u"AXSize")
        return kAXErrorAttributeUnsupported;
    const bool isPosition = attribute == u"AXPosition";
    const auto &packed = objectOf<AxValue>(value, CfType::Value);
    if (packed.kind != (isPosition ? kAXValueTypeCGPoint : kAXValueTypeCGSize))
        return kAXErrorIllegalArgument;
    if (isPosition)
        windows().apply(window, Point{packed.rect.origin.x, packed.rect.origin.y}, {});
    else
        windows().apply(window, {}, Size{packed.rect.size.width, packed.rect.size.height});
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
    const auto &given = objectOf<CfDictionary>(options, CfType::Dictionary);
    if (given.find(kAXTrustedCheckOptionPrompt) == kCFBooleanTrue)
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
    if (elementOf(element).pid == 0)
        desktop().manners.timeOut = timeoutInSeconds;
    return kAXErrorSuccess;
}

AXError AXUIElementGetPid(AXUIElementRef element, pid_t *pid)
{
    *pid = elementOf(element).pid;
    return kAXErrorSuccess;
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                      CFTypeRef *value)
{
    const AxElement &asked = elementOf(element);
    const QString name = textOf(attribute);
    if (const AXError error = reach(asked, name))
        return error;
    const auto &answers = desktop().manners.answers;
    if (const auto sown = answers.find({asked.number, name}); sown != answers.end()) {
        if (sown->second.error == kAXErrorSuccess)
            *value = toCf(sown->second.value);
        return AXError(sown->second.error);
    }
    const CFTypeRef answer = asked.number ? ofWindow(*find(asked.number), name)
                             : asked.pid  ? ofApplication(asked.pid, name)
                                          : ofSystem(name);
    if (!answer)
        return kAXErrorNoValue;
    *value = answer;
    return kAXErrorSuccess;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value)
{
    const AxElement &asked = elementOf(element);
    const QString name = textOf(attribute);
    if (const AXError error = reach(asked, name))
        return error;
    return asked.number ? setOfWindow(asked, name, value)
                        : setOfApplication(asked.pid, name, value);
}

AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action)
{
    const AxElement &asked = elementOf(element);
    if (const AXError error = reach(asked, textOf(action)))
        return error;
    if (asked.number == 0 || textOf(action) != u"AXRaise")
        return kAXErrorActionUnsupported;
    windows().raise({InMemoryDesktop::element(asked.number)});
    return kAXErrorSuccess;
}

CFTypeID AXValueGetTypeID()
{
    return CFTypeID(CfType::Value);
}

AXValueRef AXValueCreate(AXValueType type, const void *valuePtr)
{
    CGRect rect{};
    if (type == kAXValueTypeCGPoint)
        std::memcpy(&rect.origin, valuePtr, sizeof rect.origin);
    else if (type == kAXValueTypeCGSize)
        std::memcpy(&rect.size, valuePtr, sizeof rect.size);
    else
        stopTest(QStringLiteral("the double packs no value of type %1").arg(int(type)));
    return make<AXValueRef, AxValue>(type, rect);
}

Boolean AXValueGetValue(AXValueRef value, AXValueType type, void *valuePtr)
{
    const auto &packed = objectOf<AxValue>(value, CfType::Value);
    if (packed.kind != type)
        return false;
    if (type == kAXValueTypeCGPoint)
        std::memcpy(valuePtr, &packed.rect.origin, sizeof packed.rect.origin);
    else if (type == kAXValueTypeCGSize)
        std::memcpy(valuePtr, &packed.rect.size, sizeof packed.rect.size);
    else
        std::memcpy(valuePtr, &packed.rect, sizeof packed.rect);
    return true;
}

} // extern "C"
