// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "base/KeyCodes.h"

#include <algorithm>
#include <iterator>

#include <linux/input-event-codes.h>

namespace Tessel {

namespace {

constexpr int evdevOffset = 8; ///< scan code = Linux input event code + 8

// Command, Shift, Caps Lock, Option, Control, Fn.
constexpr qint64 firstModifier = 54;
constexpr qint64 lastModifier = 63;

constexpr int locks[] = { KEY_NUMLOCK, KEY_SCROLLLOCK }; // Caps Lock counts as a modifier

constexpr int mediaKeys[] = {
    KEY_MUTE,         KEY_VOLUMEDOWN,       KEY_VOLUMEUP,        KEY_BRIGHTNESSDOWN,
    KEY_BRIGHTNESSUP, KEY_BRIGHTNESS_CYCLE, KEY_BRIGHTNESS_AUTO, KEY_KBDILLUMTOGGLE,
    KEY_KBDILLUMDOWN, KEY_KBDILLUMUP,       KEY_PLAYPAUSE,       KEY_PLAY,
    KEY_PLAYCD,       KEY_PAUSECD,          KEY_STOPCD,          KEY_NEXTSONG,
    KEY_PREVIOUSSONG, KEY_REWIND,           KEY_FASTFORWARD,     KEY_EJECTCD,
};

struct SymbolRange
{
    quint32 first;
    quint32 last;
};

constexpr SymbolRange modifierSymbols[] = {
    { 0xfe01, 0xfe13 }, // ISO_Lock to ISO_Level5_Lock
    { 0xff14, 0xff14 }, // Scroll_Lock
    { 0xff7e, 0xff7f }, // Mode_switch, Num_Lock
    { 0xffe1, 0xffee }, // Shift_L to Hyper_R
};

struct Key
{
    qint64 virtualCode;
    int evdevCode;
    char character = '\0'; ///< letter or digit of the typing block
};

// Where several keys share a virtual key code, the first is the one that it stands for.
// clang-format off
constexpr Key keys[] = {
    { 0, KEY_A, 'A' }, { 1, KEY_S, 'S' }, { 2, KEY_D, 'D' }, { 3, KEY_F, 'F' }, { 4, KEY_H, 'H' },
    { 5, KEY_G, 'G' }, { 6, KEY_Z, 'Z' }, { 7, KEY_X, 'X' }, { 8, KEY_C, 'C' }, { 9, KEY_V, 'V' },
    { 11, KEY_B, 'B' }, { 12, KEY_Q, 'Q' }, { 13, KEY_W, 'W' }, { 14, KEY_E, 'E' },
    { 15, KEY_R, 'R' }, { 16, KEY_Y, 'Y' }, { 17, KEY_T, 'T' }, { 31, KEY_O, 'O' },
    { 32, KEY_U, 'U' }, { 34, KEY_I, 'I' }, { 35, KEY_P, 'P' }, { 37, KEY_L, 'L' },
    { 38, KEY_J, 'J' }, { 40, KEY_K, 'K' }, { 45, KEY_N, 'N' }, { 46, KEY_M, 'M' },
    { 18, KEY_1, '1' }, { 19, KEY_2, '2' }, { 20, KEY_3, '3' }, { 21, KEY_4, '4' },
    { 23, KEY_5, '5' }, { 22, KEY_6, '6' }, { 26, KEY_7, '7' }, { 28, KEY_8, '8' },
    { 25, KEY_9, '9' }, { 29, KEY_0, '0' },

    { 24, KEY_EQUAL }, { 27, KEY_MINUS }, { 30, KEY_RIGHTBRACE }, { 33, KEY_LEFTBRACE },
    { 39, KEY_APOSTROPHE }, { 41, KEY_SEMICOLON }, { 42, KEY_BACKSLASH }, { 43, KEY_COMMA },
    { 44, KEY_SLASH }, { 47, KEY_DOT }, { 50, KEY_GRAVE },
    { 10, KEY_102ND }, // beside the left Shift key of ISO keyboards

    { 36, KEY_ENTER }, { 48, KEY_TAB }, { 49, KEY_SPACE }, { 51, KEY_BACKSPACE }, { 53, KEY_ESC },
    { 115, KEY_HOME }, { 116, KEY_PAGEUP }, { 117, KEY_DELETE }, { 119, KEY_END },
    { 121, KEY_PAGEDOWN }, { 123, KEY_LEFT }, { 124, KEY_RIGHT }, { 125, KEY_DOWN },
    { 126, KEY_UP }, { 110, KEY_COMPOSE },
    { 114, KEY_INSERT }, { 114, KEY_HELP }, // the same place on the two kinds of keyboard

    { 54, KEY_RIGHTMETA }, { 55, KEY_LEFTMETA }, { 56, KEY_LEFTSHIFT }, { 57, KEY_CAPSLOCK },
    { 58, KEY_LEFTALT }, { 59, KEY_LEFTCTRL }, { 60, KEY_RIGHTSHIFT }, { 61, KEY_RIGHTALT },
    { 62, KEY_RIGHTCTRL }, { 63, KEY_FN },

    { 71, KEY_NUMLOCK }, { 76, KEY_KPENTER }, { 65, KEY_KPDOT }, { 67, KEY_KPASTERISK },
    { 69, KEY_KPPLUS }, { 75, KEY_KPSLASH }, { 78, KEY_KPMINUS }, { 81, KEY_KPEQUAL },
    { 82, KEY_KP0 }, { 83, KEY_KP1 }, { 84, KEY_KP2 }, { 85, KEY_KP3 }, { 86, KEY_KP4 },
    { 87, KEY_KP5 }, { 88, KEY_KP6 }, { 89, KEY_KP7 }, { 91, KEY_KP8 }, { 92, KEY_KP9 },

    { 122, KEY_F1 }, { 120, KEY_F2 }, { 99, KEY_F3 }, { 118, KEY_F4 }, { 96, KEY_F5 },
    { 97, KEY_F6 }, { 98, KEY_F7 }, { 100, KEY_F8 }, { 101, KEY_F9 }, { 109, KEY_F10 },
    { 103, KEY_F11 }, { 111, KEY_F12 }, { 105, KEY_F13 }, { 107, KEY_F14 }, { 113, KEY_F15 },
    { 106, KEY_F16 }, { 64, KEY_F17 }, { 79, KEY_F18 }, { 80, KEY_F19 }, { 90, KEY_F20 },
    // PC keyboards have these where others have F13 to F15.
    { 105, KEY_SYSRQ }, { 107, KEY_SCROLLLOCK }, { 113, KEY_PAUSE },

    { 72, KEY_VOLUMEUP }, { 73, KEY_VOLUMEDOWN }, { 74, KEY_MUTE },
    // Keys of Japanese and Korean keyboards.
    { 93, KEY_YEN }, { 94, KEY_RO }, { 95, KEY_KPJPCOMMA }, { 102, KEY_HANJA },
    { 104, KEY_HANGEUL },
};
// clang-format on

template <std::size_t size> bool isOneOf(const int (&evdevCodes)[size], quint32 scanCode)
{
    const int evdevCode = static_cast<int>(scanCode) - evdevOffset;
    return std::find(std::begin(evdevCodes), std::end(evdevCodes), evdevCode)
        != std::end(evdevCodes);
}

const Key *keyWithVirtualCode(qint64 virtualCode)
{
    const auto *key = std::find_if(std::begin(keys), std::end(keys), [=](const Key &candidate) {
        return candidate.virtualCode == virtualCode;
    });
    return key == std::end(keys) ? nullptr : key;
}

}

qint64 KeyCodes::modifierBits(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? shift : 0)
        | (modifiers & Qt::ControlModifier ? control : 0)
        | (modifiers & Qt::AltModifier ? option : 0) | (modifiers & Qt::MetaModifier ? command : 0);
}

std::optional<qint64> KeyCodes::virtualFromScanCode(quint32 scanCode)
{
    const int evdevCode = static_cast<int>(scanCode) - evdevOffset;
    const auto *key = std::find_if(std::begin(keys), std::end(keys), [=](const Key &candidate) {
        return candidate.evdevCode == evdevCode;
    });
    return key == std::end(keys) ? std::nullopt : std::optional(key->virtualCode);
}

std::optional<quint32> KeyCodes::scanCodeFromVirtual(qint64 virtualCode)
{
    const Key *key = keyWithVirtualCode(virtualCode);
    return key ? std::optional(static_cast<quint32>(key->evdevCode + evdevOffset)) : std::nullopt;
}

bool KeyCodes::isModifierOrLock(quint32 scanCode)
{
    if (isOneOf(locks, scanCode))
        return true;
    const auto virtualCode = virtualFromScanCode(scanCode);
    return virtualCode && *virtualCode >= firstModifier && *virtualCode <= lastModifier;
}

bool KeyCodes::isModifierOrLockSymbol(quint32 keysym)
{
    const auto isIn = [keysym](const SymbolRange &range) {
        return keysym >= range.first && keysym <= range.last;
    };
    return std::any_of(std::begin(modifierSymbols), std::end(modifierSymbols), isIn);
}

bool KeyCodes::isMediaKey(quint32 scanCode)
{
    return isOneOf(mediaKeys, scanCode);
}

std::optional<char> KeyCodes::ansiCharacter(qint64 virtualCode)
{
    const Key *key = keyWithVirtualCode(virtualCode);
    return key && key->character ? std::optional(key->character) : std::nullopt;
}

}
