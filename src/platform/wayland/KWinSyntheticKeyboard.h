// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SyntheticKeyboard.h"
#include "platform/wayland/KWinFakeKeys.h"
#include "platform/wayland/WaylandClientWindows.h"
#include "platform/wayland/WaylandConnection.h"

namespace Tessel {

/// Shortcuts by KWin's fake input, which has the user's layout: keys count by their place on an
/// ANSI keyboard, and text cannot be typed.
class KWinSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    [[nodiscard]] static bool isOffered();
    /// Fails when KWin does not let this program press keys.
    [[nodiscard]] static Result<std::unique_ptr<SyntheticKeyboard>> connect();

    Result<void> type(const QString &text) override;
    Result<void> pressCharacter(char32_t character, ShortcutModifiers modifiers) override;
    Result<void> pressKey(qint64 keyCode, ShortcutModifiers modifiers) override;
    void awaitKeysSeen(std::chrono::milliseconds limit) override;

private:
    explicit KWinSyntheticKeyboard(std::unique_ptr<WaylandConnection> connection);
    [[nodiscard]] Result<void> shortcut(quint32 scanCode, const ShortcutModifiers &modifiers,
                                        qint64 further);

    std::unique_ptr<WaylandConnection> m_connection;
    WaylandClientWindows m_windows { *m_connection };
    KWinFakeKeys m_keys { *m_connection };
};

}
