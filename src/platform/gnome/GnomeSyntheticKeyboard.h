// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SyntheticKeyboard.h"
#include "platform/gnome/GnomeClientWindows.h"
#include "platform/wayland/WaylandKeymap.h"

namespace Tessel {

/// Text by the input method, which gives any to a text field, else by keys of the user's layouts.
/// Programs on XWayland know no input method: they are typed to as on X11.
class GnomeSyntheticKeyboard final : public SyntheticKeyboard
{
public:
    /// Fails where the descriptions of keyboards (xkb-data) are missing.
    [[nodiscard]] static Result<std::unique_ptr<SyntheticKeyboard>> connect();

    Result<void> type(const QString &text) override;
    Result<void> pressCharacter(char32_t character, ShortcutModifiers modifiers) override;
    Result<void> pressKey(qint64 keyCode, ShortcutModifiers modifiers) override;
    void awaitKeysSeen(std::chrono::milliseconds) override { }

private:
    GnomeSyntheticKeyboard(WaylandKeymap layouts, WaylandKeymap american);
    [[nodiscard]] Result<void> typeByKeys(const QString &text);
    [[nodiscard]] Result<void> typeOnX11(const QString &text);
    [[nodiscard]] Result<void> shortcut(quint32 scanCode, const ShortcutModifiers &modifiers,
                                        qint64 further);
    [[nodiscard]] Result<void> press(quint32 scanCode, qint64 modifiers);

    GnomeClientWindows m_windows;
    WaylandKeymap m_layouts; ///< the user's
    WaylandKeymap m_american; ///< for shortcuts that those lack
    std::unique_ptr<SyntheticKeyboard> m_x11; ///< once it is needed
};

}
