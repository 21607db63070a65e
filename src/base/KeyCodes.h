// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <optional>

namespace Tessel {

/// Virtual key codes and modifier bits as the configuration file holds them. A virtual key code
/// names a physical key by its place on an ANSI keyboard, whatever the layout makes of it.
namespace KeyCodes {

inline constexpr qint64 keyC = 8;
inline constexpr qint64 keyComma = 43;
inline constexpr qint64 keyEscape = 53;
inline constexpr qint64 keyF2 = 120;

inline constexpr qint64 shift = 0x20000;
inline constexpr qint64 control = 0x40000;
inline constexpr qint64 option = 0x80000; ///< Alt
inline constexpr qint64 command = 0x100000; ///< Super
inline constexpr qint64 modifierMask = 0x1E0000;

/// The bits of those that key events of Qt have.
[[nodiscard]] qint64 modifierBits(Qt::KeyboardModifiers modifiers);

/// Between virtual key codes and native scan codes as key events have them: X11 keycodes, which are
/// Linux input event codes (linux/input-event-codes.h) + 8. Nothing for keys that have no
/// counterpart. Keys at the same place of different keyboards share a virtual key code (Insert and
/// Help; Print Screen and F13), for which scanCodeFromVirtual() gives one of them.
[[nodiscard]] std::optional<qint64> virtualFromScanCode(quint32 scanCode);
[[nodiscard]] std::optional<quint32> scanCodeFromVirtual(qint64 virtualCode);

/// Whether the key does nothing by itself: modifiers, and locks such as Num Lock. By the native
/// scan code, as Scroll Lock shares its virtual key code with F14.
[[nodiscard]] bool isModifierOrLock(quint32 scanCode);

/// Whether a layout makes the key such a one, by the X keysym (X11/Xutil.h, IsModifierKey).
[[nodiscard]] bool isModifierOrLockSymbol(quint32 keysym);

/// Whether the key is for the computer and not for an application: sound, brightness, playback.
[[nodiscard]] bool isMediaKey(quint32 scanCode);

/// The letter or digit, upper case, that a key of the typing block gives on an ANSI keyboard.
[[nodiscard]] std::optional<char> ansiCharacter(qint64 virtualCode);

}

}
