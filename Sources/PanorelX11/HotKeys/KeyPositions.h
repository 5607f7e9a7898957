#pragma once

#include <QByteArrayView>
#include <QtGlobal>

namespace Panorel::X11 {

/// No higher key code has a position.
constexpr quint32 lastKeyCode = 127;

/// The XKB name of the key that sits where a combination's key code says, "AC02" for 1: the second
/// key of the third row, whatever the layout has printed on it. Empty for a code without a known
/// position.
QByteArrayView keyPosition(quint32 keyCode);

} // namespace Panorel::X11
