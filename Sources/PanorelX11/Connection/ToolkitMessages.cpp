#include "PanorelX11/Connection/ToolkitMessages.h"

#include <QString>

namespace Panorel::X11 {

namespace {

QtMessageHandler previousHandler = nullptr;
std::function<void()> connectionBroke;

void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!message.startsWith(u"The X11 connection broke"))
        previousHandler(type, context, message);
    else if (connectionBroke)
        connectionBroke();
}

} // namespace

void ToolkitMessages::install()
{
    if (!previousHandler)
        previousHandler = qInstallMessageHandler(handle);
}

void ToolkitMessages::setConnectionBroke(std::function<void()> callback)
{
    connectionBroke = std::move(callback);
}

} // namespace Panorel::X11
