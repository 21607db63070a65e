// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

#include <QDeadlineTimer>

#include <memory>

namespace Tessel {

class SyntheticKeyboard;

/// Keys for the application in front, over a connection made for the first of them. The first key
/// after one with Command comes when the program has had time to fetch the clipboard, or to hand it
/// over.
class DesktopKeyboard final : public Osascript::Keyboard
{
public:
    DesktopKeyboard();
    ~DesktopKeyboard() override;

    Result<void> type(const QString &text, Osascript::Modifiers modifiers) override;
    Result<void> press(int keyCode, Osascript::Modifiers modifiers) override;

private:
    [[nodiscard]] Result<SyntheticKeyboard *> keyboard();
    [[nodiscard]] Result<void> typeShortcut(char32_t character, Osascript::Modifiers modifiers);
    void rememberShortcut(Osascript::Modifiers modifiers);

    std::unique_ptr<SyntheticKeyboard> m_keyboard; ///< from the first key on
    std::optional<QDeadlineTimer> m_shortcutEffect; ///< of a key with Command
};

}
