#include "PanorelMac/Support/CfText.h"

#include "PanorelMac/Support/ValidText.h"

namespace Panorel::Mac {

CfRef<CFStringRef> toCfString(const QString &text)
{
    const QString valid = validText(text);
    return CfRef<CFStringRef>::adopt(
        CFStringCreateWithCharacters(kCFAllocatorDefault, valid.utf16(), valid.size()));
}

QString toQString(CFStringRef string)
{
    QString text(CFStringGetLength(string), Qt::Uninitialized);
    static_assert(sizeof(UniChar) == sizeof(QChar));
    CFStringGetCharacters(string, CFRangeMake(0, text.size()),
                          reinterpret_cast<UniChar *>(text.data()));
    return validText(text);
}

} // namespace Panorel::Mac
