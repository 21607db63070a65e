// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"
#include "base/ShortcutModifiers.h"
#include "platform/Workspace.h"
#include "platform/x11/X11FakeKeys.h"
#include "platform/x11/X11KeyLayout.h"

namespace Tessel {

class X11SpareKeys;

/// Types into the application in front, with the keyboard layout as it is now. Modifiers that the
/// user holds are released first.
class X11Typist final
{
public:
    X11Typist(X11Connection &connection, const X11KeyLayout &layout, const FrontApplication &front);

    /// Types the characters; those that the layout lacks by way of spare keys. Characters that no
    /// keyboard has (controls other than line ends, tab, backspace, escape) are passed over.
    [[nodiscard]] Result<void> type(const QString &text);

    /// The shortcut of a character.
    [[nodiscard]] Result<void> shortcut(char32_t character, ShortcutModifiers modifiers);

    /// The shortcut of a key, an X keycode.
    [[nodiscard]] Result<void> shortcut(quint8 key, ShortcutModifiers modifiers);

private:
    [[nodiscard]] std::optional<X11KeyLayout::Stroke> strokeFor(char32_t character) const;
    [[nodiscard]] QList<quint8> modifierKeys(ShortcutModifiers modifiers) const;
    void press(X11KeyLayout::Stroke stroke);
    void settle(qsizetype lentKeys);

    X11Connection &m_connection;
    X11KeyLayout m_layout;
    FrontApplication m_front;
    quint32 m_window;
    X11FakeKeys m_keys;
};

}
