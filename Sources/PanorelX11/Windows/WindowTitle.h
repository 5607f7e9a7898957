#pragma once

#include <QByteArray>
#include <QString>

namespace Panorel::X11 {

/// A window's title from the bytes of its property. Whatever they are, the result is valid
/// Unicode: what can't be decoded becomes U+FFFD. It ends at the first NUL, as in every program
/// that shows it, and is otherwise kept as it is.
QString titleFromUtf8(const QByteArray &bytes);

/// Latin-1, as properties of type STRING hold it.
QString titleFromLatin1(const QByteArray &bytes);

/// COMPOUND_TEXT: Latin-1 with escape sequences to other character sets. Latin-1 and UTF-8 parts
/// are decoded; each byte of any other set becomes U+FFFD, which still tells titles apart.
QString titleFromCompoundText(const QByteArray &bytes);

} // namespace Panorel::X11
