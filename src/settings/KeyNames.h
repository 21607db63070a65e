// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

// All in the current language. They need an application object.

/// What the key of a virtual key code (KeyCodes.h) is called; "Key 52" where it has no name. Keys
/// with the same meaning in the typing block and the keypad share a name.
[[nodiscard]] QString keyCodeToString(qint64 keyCode);

/// A key with its modifiers, "⌃⇧F2". Bits that stand for no modifier do not show.
[[nodiscard]] QString shortcutText(qint64 keyCode, qint64 modifiers);

/// The same in words, "Ctrl+Shift+F2".
[[nodiscard]] QString spelledShortcut(qint64 keyCode, qint64 modifiers);

}
