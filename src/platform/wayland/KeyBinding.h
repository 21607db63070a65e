// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

struct KeyChord;

/// How desktops write down a key with its modifiers.
namespace KeyBinding {

/// For the portal: "CTRL+SHIFT+F2" (Shortcuts Specification of freedesktop.org). Empty when the key
/// has no symbol on a US keyboard.
[[nodiscard]] QString shortcut(const KeyChord &chord);

/// Where the user binds the chord in the settings of GNOME, in words.
[[nodiscard]] QString inGnome(const KeyChord &chord);

/// What binds the chord to "tessel --trigger" in the configuration of the compositor that runs, as
/// far as its variables in the environment tell which that is; else empty.
[[nodiscard]] QString configuration(const KeyChord &chord);

}

}
