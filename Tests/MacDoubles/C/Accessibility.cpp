#include "MacDoubles/C/CfObjects.h"

#include <QPointF>
#include <QSizeF>

#include <algorithm>
#include <cstring>

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

InMemoryDesktop &windows()
{
    return desktop().platform.desktop;
}

Element elementOf(AXUIElementRef element)
{
    return objectOf(element, CfType::Element).value.value<Element>();
}

const InMemoryWindow *find(int number)
{
    const auto &all = windows().allWindows();
    const auto found = std::ranges::find(all, number, &InMemoryWindow::number);
    return found == all.end() ? nullptr : &*found;
}

const RunningApplication *findApplication(ProcessIdentifier pid)
{
    const auto &all = windows().applications();
    const auto found = std::ranges::find(all, pid, &RunningApplication::pid);
    return found == all.end() ? nullptr : &*found;
}

/// Whether what is asked of the element reaches anyone.
AXError reach(const Element &element)
{
    const auto [pid, number] = element;
    AccessibilityManners &manners = desktop().manners;
    if (manners.onQuestion)
        manners.onQuestion();
    if (!windows().trusted)
        return kAXErrorAPIDisabled;
    if (manners.hung.contains(pid)) {
        ++manners.waits;
        return kAXErrorCannotComplete;
    }
    const bool isGone = (number != 0 && !find(number)) || (pid != 0 && !findApplication(pid));
    return isGone ? kAXErrorInvalidUIElement : kAXErrorSuccess;
}

QVariant windowList(ProcessIdentifier pid)
{
    QVariantList elements;
    for (const InMemoryWindow &window : windows().allWindows()) {
        if (window.pid == pid && !desktop().manners.isBlank)
            elements << QVariant::fromValue(Element(pid, window.number));
    }
    return elements;
}

/// What an application or, of process 0, the whole system answers; invalid for no value.
QVariant answerOf(ProcessIdentifier pid, const QString &attribute)
{
    if (attribute == u"AXWindows")
        return windowList(pid);
    if (attribute == u"AXHidden")
        return findApplication(pid)->isHidden;
    if (attribute == u"AXRole")
        return QStringLiteral("AXApplication");
    const auto focused = windows().focused;
    if (!focused)
        return {};
    const ProcessIdentifier owner = find(*focused)->pid;
    if (attribute == u"AXFocusedApplication")
        return QVariant::fromValue(Element(owner, 0));
    if (attribute == u"AXFocusedWindow" && owner == pid)
        return QVariant::fromValue(Element(pid, *focused));
    return {};
}

QVariant answerOf(const InMemoryWindow &window, const QString &attribute)
{
    const QVariantMap answers{
        {QStringLiteral("AXPosition"), QPointF(window.frame.x, window.frame.y)},
        {QStringLiteral("AXSize"), QSizeF(window.frame.width, window.frame.height)},
        {QStringLiteral("AXTitle"), window.title.value()},
        {QStringLiteral("AXMinimized"), window.isMinimized},
        {QStringLiteral("AXFullScreen"), window.isFullScreen},
        {QStringLiteral("AXRole"), QLatin1String(window.layer == 0 ? "AXWindow" : "AXScrollArea")},
    };
    return answers.value(attribute);
}

/// The type of variant that holds such a value: of the same layout.
QMetaType metaTypeOf(AXValueType type)
{
    return QMetaType(type == kAXValueTypeCGPoint ? QMetaType::QPointF : QMetaType::QSizeF);
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
    return static_cast<AXUIElementRef>(toCf(QVariant::fromValue(Element(pid, 0))));
}
AXUIElementRef AXUIElementCreateSystemWide()
{
    return AXUIElementCreateApplication(0);
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
    if (const AXError error = reach({pid, number}))
        return error;
    const auto &answers = desktop().manners.answers;
    const auto sown = answers.find({number, name});
    if (sown != answers.end() && sown->second.error)
        return AXError(sown->second.error);
    const QVariant answer = sown != answers.end() ? sown->second.value
                            : number              ? answerOf(*find(number), name)
                                                  : answerOf(pid, name);
    *value = toCf(answer);
    return *value || sown != answers.end() ? kAXErrorSuccess : kAXErrorNoValue;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value)
{
    const auto [pid, number] = elementOf(element);
    const QString name = textOf(attribute);
    if (const AXError error = reach({pid, number}))
        return error;
    auto &mainWindow = desktop().manners.mainWindow;
    const auto window = InMemoryDesktop::element(number ? number : mainWindow);
    const QVariant &given = objectOf(value).value;
    if (name == u"AXFrontmost")
        windows().focus(window);
    else if (name == u"AXMain")
        mainWindow = number;
    else if (name == u"AXPosition")
        windows().apply(window, Point{given.toPointF().x(), given.toPointF().y()}, {});
    else
        windows().apply(window, {}, Size{given.toSizeF().width(), given.toSizeF().height()});
    return kAXErrorSuccess;
}

AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef)
{
    if (const AXError error = reach(elementOf(element)))
        return error;
    windows().raise({InMemoryDesktop::element(elementOf(element).second)});
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
