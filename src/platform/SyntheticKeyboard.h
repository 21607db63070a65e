// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"
#include "base/ShortcutModifiers.h"

#include <chrono>
#include <memory>

namespace Tessel {

/// Presses keys for a script. They go to the application in front; modifiers that the user holds
/// are lifted first. Each call returns when the application has seen the keys, or after a bounded
/// wait when it does not tell. Fails where no program may press keys. Needs the application object.
class SyntheticKeyboard
{
public:
    virtual ~SyntheticKeyboard() = default;

    /// Types the characters, whatever the layout is. Those that no keyboard has (controls other
    /// than line ends, tab, backspace, escape) are passed over.
    virtual Result<void> type(const QString &text) = 0;

    /// Presses the shortcut of a character.
    virtual Result<void> pressCharacter(char32_t character, ShortcutModifiers modifiers) = 0;

    /// Presses the shortcut of the key with this virtual key code (KeyCodes.h).
    virtual Result<void> pressKey(qint64 keyCode, ShortcutModifiers modifiers) = 0;

    /// Waits until the application in front has seen all keys so far, if it can be asked.
    virtual void awaitKeysSeen(std::chrono::milliseconds limit) = 0;
};

/// Connects to the desktop, with the backend of makePlatform(). Apart from HelperPlatform: it loads
/// what knows keyboard layouts.
[[nodiscard]] Result<std::unique_ptr<SyntheticKeyboard>> makeSyntheticKeyboard();

}
