// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

#include <QDeadlineTimer>

namespace Tessel {

class DisplayConnection;
class Typist;

/// Keys through XTEST to the window that has the keyboard. Returns when its program has seen them,
/// or after a bounded wait when it does not tell. The first key after one with Command comes when
/// the program has had time to fetch the clipboard, or to hand it over.
class DesktopKeyboard final : public Osascript::Keyboard
{
public:
    explicit DesktopKeyboard(DisplayConnection &display);

    Result<void> type(const QString &text, Osascript::Modifiers modifiers) override;
    Result<void> press(int keyCode, Osascript::Modifiers modifiers) override;

private:
    /// Nothing, with a reason, when no keys can be pressed here.
    [[nodiscard]] std::optional<Typist> typist(QString *reason);
    [[nodiscard]] Result<void> typeShortcut(char32_t character, Osascript::Modifiers modifiers);
    void note(Osascript::Modifiers modifiers);

    DisplayConnection &m_display;
    std::optional<QDeadlineTimer> m_shortcutEffect; ///< of a key with Command
};

}
