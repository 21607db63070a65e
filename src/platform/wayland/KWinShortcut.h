// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

struct KeyChord;

/// The chord as KGlobalAccel has it, a Qt::Key with the bits of Qt::KeyboardModifiers; 0 when Qt
/// has no key for it. As KWin does, by what the key gives on an ANSI keyboard with Shift.
[[nodiscard]] int kwinShortcut(const KeyChord &chord);

}
