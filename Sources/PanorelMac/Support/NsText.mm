#include "PanorelMac/Support/NsText.h"

#include "PanorelMac/Support/ValidText.h"

namespace Panorel::Mac {

std::optional<QString> textOf(id object)
{
    if (![object isKindOfClass:NSString.class])
        return {};
    NSString *string = object;
    QString text(qsizetype(string.length), Qt::Uninitialized);
    static_assert(sizeof(unichar) == sizeof(QChar));
    [string getCharacters:reinterpret_cast<unichar *>(text.data())
                    range:NSMakeRange(0, string.length)];
    return validText(std::move(text));
}

NSString *nsText(const QString &text)
{
    const QString valid = validText(text);
    return [NSString stringWithCharacters:reinterpret_cast<const unichar *>(valid.utf16())
                                   length:NSUInteger(valid.size())];
}

} // namespace Panorel::Mac
