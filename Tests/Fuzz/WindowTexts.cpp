#include "PanorelX11/Windows/WindowTitle.h"

#include "Fuzz/Fuzz.h"

#include <QList>

using namespace Panorel::Fuzz;
using namespace Panorel::X11;

namespace {

void check(const QByteArray &input)
{
    const QByteArray shown = input.split('\0').constFirst();
    const QString fromUtf8 = titleFromUtf8(input);
    const QString fromLatin1 = titleFromLatin1(input);
    const QString fromCompoundText = titleFromCompoundText(input);
    for (const QString &title : {fromUtf8, fromLatin1, fromCompoundText})
        require(title.isValidUtf16() && !title.contains(QChar(u'\0')), "every title can be stored");
    require(fromLatin1.toLatin1() == shown, "Latin-1 is taken byte by byte");
    if (!fromUtf8.contains(QChar::ReplacementCharacter))
        require(fromUtf8.toUtf8() == shown, "valid UTF-8 is kept as it is");
    if (!shown.contains('\x1b'))
        require(fromCompoundText == fromLatin1, "compound text begins as Latin-1");
    const QByteArray plain = shown.split('\x1b').constFirst();
    require(titleFromCompoundText("\x1b%G" + plain) == titleFromUtf8(plain),
            "a part in UTF-8 reads as such");
}

const Target target("WindowTexts", check);

} // namespace
