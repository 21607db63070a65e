// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"
#include "platform/Workspace.h"
#include "platform/x11/X11FakeKeys.h"
#include "platform/x11/X11KeyLayout.h"

#include <chrono>

namespace Tessel {

class SpareKeys;

/// Types into the application in front, with the keyboard layout as it is now. Modifiers that the
/// user holds are released first.
class Typist final
{
public:
    Typist(X11Connection &connection, const X11KeyLayout &layout, const FrontApplication &front);

    /// Types the characters; those that the layout lacks by way of spare keys. Characters that no
    /// keyboard has (controls other than line ends, tab, backspace, escape) are passed over.
    [[nodiscard]] Result<void> type(const QString &text);

    /// The shortcut of a character.
    [[nodiscard]] Result<void> shortcut(char32_t character, Osascript::Modifiers modifiers);

    /// The shortcut of a key, an X keycode.
    [[nodiscard]] Result<void> shortcut(quint8 key, Osascript::Modifiers modifiers);

    /// Waits until the program has seen all keys, if it can be asked.
    void awaitProgram(std::chrono::milliseconds limit);

private:
    [[nodiscard]] std::optional<X11KeyLayout::Stroke> strokeFor(char32_t character) const;
    [[nodiscard]] QList<quint8> modifierKeys(Osascript::Modifiers modifiers) const;
    void press(X11KeyLayout::Stroke stroke);
    void settle(qsizetype lentKeys);

    X11Connection &m_connection;
    X11KeyLayout m_layout;
    FrontApplication m_front;
    X11FakeKeys m_keys;
};

}
