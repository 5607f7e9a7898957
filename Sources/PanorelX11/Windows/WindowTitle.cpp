#include "PanorelX11/Windows/WindowTitle.h"

namespace Panorel::X11 {

namespace {

constexpr char escape = '\x1b';

QByteArrayView untilNul(const QByteArray &bytes)
{
    const auto end = bytes.indexOf('\0');
    return end < 0 ? QByteArrayView(bytes) : QByteArrayView(bytes).first(end);
}

/// The length of the escape sequence at the front: escape, intermediate bytes, a final one.
qsizetype sequenceLength(QByteArrayView text)
{
    qsizetype length = 1;
    while (length < text.size() && text[length] >= 0x20 && text[length] <= 0x2f)
        ++length;
    return std::min(length + 1, text.size());
}

} // namespace

QString titleFromUtf8(const QByteArray &bytes)
{
    return QString::fromUtf8(untilNul(bytes));
}

QString titleFromLatin1(const QByteArray &bytes)
{
    return QString::fromLatin1(untilNul(bytes));
}

QString titleFromCompoundText(const QByteArray &bytes)
{
    enum class Part { Latin1, Utf8, Other };
    QByteArrayView rest = untilNul(bytes);
    Part part = Part::Latin1;
    QString title;
    while (!rest.isEmpty()) {
        if (rest.front() == escape) {
            const QByteArrayView sequence = rest.first(sequenceLength(rest)).sliced(1);
            if (sequence == "%G")
                part = Part::Utf8;
            else if (sequence == "%@" || sequence == "(B" || sequence == "-A")
                part = Part::Latin1;
            else
                part = Part::Other;
            rest = rest.sliced(sequence.size() + 1);
            continue;
        }
        const auto next = std::find(rest.begin(), rest.end(), escape) - rest.begin();
        const QByteArrayView run = rest.first(next);
        if (part == Part::Latin1)
            title += QString::fromLatin1(run);
        else if (part == Part::Utf8)
            title += QString::fromUtf8(run);
        else
            title += QString(run.size(), QChar::ReplacementCharacter);
        rest = rest.sliced(next);
    }
    return title;
}

} // namespace Panorel::X11
