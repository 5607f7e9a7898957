#include "PanorelCore/Records/Models.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace Panorel {

namespace {

struct KeyName {
    quint32 keyCode;
    const char16_t *onMac;
    const char16_t *onPC; ///< null: the same
};

/// By macOS virtual key code, which names a position of the ANSI keyboard.
constexpr std::array keyNames{
    KeyName{0, u"A", nullptr},      KeyName{1, u"S", nullptr},  KeyName{2, u"D", nullptr},
    KeyName{3, u"F", nullptr},      KeyName{4, u"H", nullptr},  KeyName{5, u"G", nullptr},
    KeyName{6, u"Z", nullptr},      KeyName{7, u"X", nullptr},  KeyName{8, u"C", nullptr},
    KeyName{9, u"V", nullptr},      KeyName{11, u"B", nullptr}, KeyName{12, u"Q", nullptr},
    KeyName{13, u"W", nullptr},     KeyName{14, u"E", nullptr}, KeyName{15, u"R", nullptr},
    KeyName{16, u"Y", nullptr},     KeyName{17, u"T", nullptr}, KeyName{18, u"1", nullptr},
    KeyName{19, u"2", nullptr},     KeyName{20, u"3", nullptr}, KeyName{21, u"4", nullptr},
    KeyName{22, u"6", nullptr},     KeyName{23, u"5", nullptr}, KeyName{24, u"=", nullptr},
    KeyName{25, u"9", nullptr},     KeyName{26, u"7", nullptr}, KeyName{27, u"-", nullptr},
    KeyName{28, u"8", nullptr},     KeyName{29, u"0", nullptr}, KeyName{30, u"]", nullptr},
    KeyName{31, u"O", nullptr},     KeyName{32, u"U", nullptr}, KeyName{33, u"[", nullptr},
    KeyName{34, u"I", nullptr},     KeyName{35, u"P", nullptr}, KeyName{36, u"↩", u"Enter"},
    KeyName{37, u"L", nullptr},     KeyName{38, u"J", nullptr}, KeyName{39, u"'", nullptr},
    KeyName{40, u"K", nullptr},     KeyName{41, u";", nullptr}, KeyName{42, u"\\", nullptr},
    KeyName{43, u",", nullptr},     KeyName{44, u"/", nullptr}, KeyName{45, u"N", nullptr},
    KeyName{46, u"M", nullptr},     KeyName{47, u".", nullptr}, KeyName{48, u"⇥", u"Tab"},
    KeyName{49, u"Space", nullptr}, KeyName{50, u"`", nullptr}, KeyName{51, u"⌫", u"Backspace"},
    KeyName{53, u"⎋", u"Esc"},
};
static_assert(keyNames.size() == 52);

/// Keys that have a name on a PC keyboard only.
constexpr std::array pcKeyNames{
    KeyName{122, nullptr, u"F1"},     KeyName{120, nullptr, u"F2"},
    KeyName{99, nullptr, u"F3"},      KeyName{118, nullptr, u"F4"},
    KeyName{96, nullptr, u"F5"},      KeyName{97, nullptr, u"F6"},
    KeyName{98, nullptr, u"F7"},      KeyName{100, nullptr, u"F8"},
    KeyName{101, nullptr, u"F9"},     KeyName{109, nullptr, u"F10"},
    KeyName{103, nullptr, u"F11"},    KeyName{111, nullptr, u"F12"},
    KeyName{105, nullptr, u"F13"},    KeyName{107, nullptr, u"F14"},
    KeyName{113, nullptr, u"F15"},    KeyName{106, nullptr, u"F16"},
    KeyName{64, nullptr, u"F17"},     KeyName{79, nullptr, u"F18"},
    KeyName{80, nullptr, u"F19"},     KeyName{90, nullptr, u"F20"},
    KeyName{114, nullptr, u"Insert"}, KeyName{115, nullptr, u"Home"},
    KeyName{116, nullptr, u"PgUp"},   KeyName{117, nullptr, u"Delete"},
    KeyName{119, nullptr, u"End"},    KeyName{121, nullptr, u"PgDown"},
    KeyName{123, nullptr, u"Left"},   KeyName{124, nullptr, u"Right"},
    KeyName{125, nullptr, u"Down"},   KeyName{126, nullptr, u"Up"},
};

template <std::size_t count>
const KeyName *nameOf(quint32 keyCode, const std::array<KeyName, count> &names)
{
    const auto found = std::ranges::find(names, keyCode, &KeyName::keyCode);
    return found == names.end() ? nullptr : &*found;
}

} // namespace

QString HotKeyCombo::displayString() const
{
    QString text;
    if (modifiers & control)
        text += QStringLiteral("⌃");
    if (modifiers & option)
        text += QStringLiteral("⌥");
    if (modifiers & shift)
        text += QStringLiteral("⇧");
    if (modifiers & command)
        text += QStringLiteral("⌘");
    const KeyName *name = nameOf(keyCode, keyNames);
    return text + (name ? QString::fromUtf16(name->onMac) : QStringLiteral("?"));
}

QString HotKeyCombo::pcString() const
{
    QStringList parts;
    if (modifiers & control)
        parts.append(QStringLiteral("Ctrl"));
    if (modifiers & option)
        parts.append(QStringLiteral("Alt"));
    if (modifiers & shift)
        parts.append(QStringLiteral("Shift"));
    if (modifiers & command)
        parts.append(QStringLiteral("Super"));
    const KeyName *name = nameOf(keyCode, keyNames);
    if (!name)
        name = nameOf(keyCode, pcKeyNames);
    if (name)
        parts.append(QString::fromUtf16(name->onPC ? name->onPC : name->onMac));
    else
        parts.append(QStringLiteral("?"));
    return parts.join(QLatin1Char('+'));
}

} // namespace Panorel
