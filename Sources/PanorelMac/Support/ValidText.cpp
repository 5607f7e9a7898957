#include "PanorelMac/Support/ValidText.h"

namespace Panorel::Mac {

QString validText(QString text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text.at(i).isSurrogate())
            continue;
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else
            text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace Panorel::Mac
