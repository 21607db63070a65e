// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

namespace Tessel {

/// What is held while a key is pressed for a script.
struct ShortcutModifiers
{
    bool command = false; ///< the desktop's Ctrl, and Ctrl+Shift where the keys go to a terminal
    bool control = false;
    bool option = false; ///< Alt
    bool shift = false;

    friend bool operator==(const ShortcutModifiers &, const ShortcutModifiers &) = default;
};

}
