// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SyntheticKeyboard.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11Workspace.h"

namespace Tessel {

class X11Typist;

/// Keys through XTEST to the window that has the keyboard.
class X11SyntheticKeyboard final : public SyntheticKeyboard
{
public:
    /// Fails when the X server cannot be reached or lets no program press keys.
    [[nodiscard]] static Result<std::unique_ptr<SyntheticKeyboard>> connect();

    Result<void> type(const QString &text) override;
    Result<void> pressCharacter(char32_t character, ShortcutModifiers modifiers) override;
    Result<void> pressKey(qint64 keyCode, ShortcutModifiers modifiers) override;
    void awaitKeysSeen(std::chrono::milliseconds limit) override;

private:
    explicit X11SyntheticKeyboard(std::unique_ptr<X11Connection> connection);
    [[nodiscard]] Result<X11Typist> typist();

    std::unique_ptr<X11Connection> m_connection;
    X11Workspace m_workspace { *m_connection };
};

}
