// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QMargins>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace Tessel {

/// Size and place of the bar. Logical pixels, y down.
namespace PanelLayout {

inline constexpr int buttonSize = 38;
inline constexpr int buttonsPerRow = 5;
inline constexpr int windowMargin = 20; ///< on each side of the window, for shadow and animation

/// From the window's edges to the visible bar's.
inline constexpr QMargins barMargins(windowMargin + 2, windowMargin, windowMargin + 2,
                                     windowMargin);

struct Layout
{
    QSize window; ///< whole window, margins included
    QRect bar; ///< the visible rounded bar, in the window
    QList<QRect> buttons; ///< in the window
};

/// Rows of five, left-aligned, for buttons of the given widths.
[[nodiscard]] Layout arrange(const QList<int> &buttonWidths);

/// Top-left corner of the window: the bar centred above the pointer, or below it when it would not
/// fit, kept between the left and right edges of the visible frame.
[[nodiscard]] QPoint place(QPoint pointer, QSize window, const std::optional<QRect> &visibleFrame);

/// The key that picks the button, '\0' from the 21st on.
[[nodiscard]] char shortcutCharacter(int button);

/// The button that the (upper-case) character picks.
[[nodiscard]] std::optional<int> buttonForCharacter(QChar character);

}

}
