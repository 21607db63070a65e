// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"
#include "base/ShortcutModifiers.h"

namespace Tessel {

struct FrontApplication;

/// What is known of terminal emulators, and of programs like them, beyond their desktop entries.
namespace Terminals {

/// Whether windows of this class or application id (on X11 either part of WM_CLASS) are terminals.
[[nodiscard]] bool isTerminalClass(const QString &windowClass);

/// Whether windows of this class are editors that came out of terminals and take any key for a
/// command: Ctrl+Insert begins to insert text in gvim.
[[nodiscard]] bool isModalEditorClass(const QString &windowClass);

/// False for those that have no shortcuts with Ctrl+Shift: they give such keys to the program in
/// them (an interrupt, for C). Takes the desktop
/// entry's identifier or the window class.
[[nodiscard]] bool hasControlShiftShortcuts(const QString &identifier);

enum class ShortcutKey { c, other };

/// What has to be held for a shortcut in the application: in terminals Command is Ctrl+Shift. Fails
/// where the key would reach, or interrupt, the program in a terminal.
[[nodiscard]] Result<ShortcutModifiers> shortcutIn(const FrontApplication &application,
                                                   ShortcutKey key, ShortcutModifiers modifiers);

}

}
