// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SyntheticKeyboard.h"
#include "platform/wayland/WaylandClientWindows.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandKeyboard.h"

namespace Tessel {

/// Keys of a virtual keyboard, whose layout has the characters that are typed. No program tells
/// whether it has seen them.
class WaylandSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    [[nodiscard]] static bool isOffered();
    /// Fails when the compositor cannot be reached or lets no program press keys.
    [[nodiscard]] static Result<std::unique_ptr<SyntheticKeyboard>> connect();

    ~WaylandSyntheticKeyboard() override;

    Result<void> type(const QString &text) override;
    Result<void> pressCharacter(char32_t character, ShortcutModifiers modifiers) override;
    Result<void> pressKey(qint64 keyCode, ShortcutModifiers modifiers) override;
    void awaitKeysSeen(std::chrono::milliseconds limit) override;

private:
    WaylandSyntheticKeyboard(std::unique_ptr<WaylandConnection> connection, WaylandKeymap keymap);
    [[nodiscard]] bool lend(const QList<quint32> &symbols);
    [[nodiscard]] Result<void> shortcut(const WaylandKeymap::Stroke &stroke,
                                        const ShortcutModifiers &modifiers);
    [[nodiscard]] Result<void> settle();

    std::unique_ptr<WaylandConnection> m_connection;
    WaylandClientWindows m_windows { *m_connection };
    WaylandKeyboard m_keyboard { *m_connection };
    WaylandKeymap m_keymap; ///< the keyboard's
    bool m_isOnlyKeyboard; ///< of the seat
};

}
