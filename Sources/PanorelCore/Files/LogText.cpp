#include "PanorelCore/Files/LogText.h"

namespace Panorel {

QString forLog(QString text)
{
    for (QChar &character : text) {
        const auto category = character.category();
        if (category == QChar::Other_Control || category == QChar::Separator_Line
            || category == QChar::Separator_Paragraph)
            character = u' ';
    }
    return text;
}

} // namespace Panorel
