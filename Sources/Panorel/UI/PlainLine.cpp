#include "Panorel/UI/PlainLine.h"

#include "PanorelCore/Files/LogText.h"

#include <QTextDocument>

namespace Panorel {

QString plainLine(const QString &text)
{
    return forLog(text).trimmed();
}

QString plainToolTip(const QString &text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<qt>") + text.toHtmlEscaped() + QStringLiteral("</qt>");
}

} // namespace Panorel
