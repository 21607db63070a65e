// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinShortcut.h"

#include "base/KeyCodes.h"
#include "platform/EventMonitor.h"

#include <Qt>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace Tessel {

namespace {

struct Key
{
    qint64 code;
    int key;
};

// clang-format off
constexpr Key keys[] = {
    { 24, '=' }, { 27, '-' }, { 30, ']' }, { 33, '[' }, { 39, '\'' }, { 41, ';' }, { 42, '\\' },
    { 43, ',' }, { 44, '/' }, { 47, '.' }, { 50, '`' }, { 10, '<' },
    { 36, Qt::Key_Return }, { 48, Qt::Key_Tab }, { 49, Qt::Key_Space }, { 51, Qt::Key_Backspace },
    { 53, Qt::Key_Escape }, { 115, Qt::Key_Home }, { 116, Qt::Key_PageUp }, { 117, Qt::Key_Delete },
    { 119, Qt::Key_End }, { 121, Qt::Key_PageDown }, { 123, Qt::Key_Left }, { 124, Qt::Key_Right },
    { 125, Qt::Key_Down }, { 126, Qt::Key_Up }, { 110, Qt::Key_Menu }, { 114, Qt::Key_Insert },
    { 122, Qt::Key_F1 }, { 120, Qt::Key_F2 }, { 99, Qt::Key_F3 }, { 118, Qt::Key_F4 },
    { 96, Qt::Key_F5 }, { 97, Qt::Key_F6 }, { 98, Qt::Key_F7 }, { 100, Qt::Key_F8 },
    { 101, Qt::Key_F9 }, { 109, Qt::Key_F10 }, { 103, Qt::Key_F11 }, { 111, Qt::Key_F12 },
    // PC keyboards have these where others have F13 to F15.
    { 105, Qt::Key_Print }, { 107, Qt::Key_ScrollLock }, { 113, Qt::Key_Pause },
    { 106, Qt::Key_F16 }, { 64, Qt::Key_F17 }, { 79, Qt::Key_F18 }, { 80, Qt::Key_F19 },
    { 90, Qt::Key_F20 },
};

constexpr Key keypad[] = {
    { 82, '0' }, { 83, '1' }, { 84, '2' }, { 85, '3' }, { 86, '4' }, { 87, '5' }, { 88, '6' },
    { 89, '7' }, { 91, '8' }, { 92, '9' }, { 65, '.' }, { 67, '*' }, { 69, '+' }, { 75, '/' },
    { 78, '-' }, { 81, '=' }, { 76, Qt::Key_Enter },
};
// clang-format on

constexpr std::string_view plain = "`1234567890-=[]\\;',./<";
constexpr std::string_view shifted = "~!@#$%^&*()_+{}|:\"<>?>";

constexpr struct
{
    qint64 bit;
    Qt::KeyboardModifier modifier;
} modifierTable[] = {
    { KeyCodes::shift, Qt::ShiftModifier },
    { KeyCodes::control, Qt::ControlModifier },
    { KeyCodes::option, Qt::AltModifier },
    { KeyCodes::command, Qt::MetaModifier },
};

template <std::size_t size> int find(const Key (&table)[size], qint64 code)
{
    const auto *key = std::find_if(std::begin(table), std::end(table),
                                   [=](const Key &candidate) { return candidate.code == code; });
    return key == std::end(table) ? 0 : key->key;
}

}

int kwinShortcut(const KeyChord &chord)
{
    const auto character = KeyCodes::ansiCharacter(chord.keyCode);
    int key = character ? *character : find(keys, chord.keyCode);
    int modifiers = 0;
    for (const auto &[bit, modifier] : modifierTable) {
        if (chord.modifiers & bit)
            modifiers |= int(modifier);
    }
    const auto place = key > 0 && key < 0x80 ? plain.find(char(key)) : plain.npos;
    if (place != plain.npos && (chord.modifiers & KeyCodes::shift) != 0) {
        key = uchar(shifted[place]);
        modifiers &= ~int(Qt::ShiftModifier);
    }
    if (const int number = find(keypad, chord.keyCode)) {
        key = number;
        modifiers |= Qt::KeypadModifier;
    }
    return key ? key | modifiers : 0;
}

}
