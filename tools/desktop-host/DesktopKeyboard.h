// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/Host.h"

class DisplayConnection;
class Typist;

/// Keys through XTEST to the window that has the keyboard. Returns when its program has seen them,
/// or after a bounded wait when it does not tell.
class DesktopKeyboard final : public osascript::Keyboard
{
public:
    explicit DesktopKeyboard(DisplayConnection &display);

    osascript::Failure type(const QString &text, osascript::Modifiers modifiers) override;
    osascript::Failure press(int keyCode, osascript::Modifiers modifiers) override;

private:
    /// Nothing, with a reason, when no keys can be pressed here.
    [[nodiscard]] std::optional<Typist> typist(QString *reason);

    DisplayConnection &m_display;
};
