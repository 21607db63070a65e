// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/AppConfig.h"

#include <QColor>
#include <QFont>

namespace Tessel {

/// The colour of a ground that lets what is behind it through, where the desktop blends windows.
struct Ground
{
    QColor blended;
    QColor opaque;

    [[nodiscard]] const QColor &color(bool isCompositing) const
    {
        return isCompositing ? blended : opaque;
    }
};

/// Every colour that is drawn, by its role. A new theme is a row of the table in Theme.cpp.
struct Theme
{
    struct Bar
    {
        Ground ground;
        QColor groundOverBlur; ///< where what is behind is blurred
        QColor shadow; ///< where it is darkest
        QColor border;
        QColor icon; ///< tint of template images and text
        QColor shortcut;
        QColor highlight; ///< under the pointer
    };
    struct Bubble
    {
        Ground ground;
        QColor shadow; ///< where it is darkest
        QColor text;
    };
    struct LargeType
    {
        QColor veil;
        QColor text;
    };
    struct ErrorPanel
    {
        QColor ground;
        QColor border;
        QColor symbol;
        QColor text;
        QColor field; ///< ground of the message
        QColor scrollBar;
        QColor button;
        QColor buttonBorder; ///< and the ground of a button under the pointer
        QColor focus;
        QColor defaultButton;
        QColor defaultButtonText;
    };
    struct Tray
    {
        QColor image;
        QColor contour;
    };
    /// Windows with a frame, and their controls.
    struct Window
    {
        QColor ground;
        QColor text;
        QColor secondaryText;
        QColor disabledText;
        QColor field;
        QColor alternateRow;
        QColor button;
        QColor line;
        QColor accent;
        QColor accentText; ///< and what else stands on the accent
        QColor link;
        QColor visitedLink;
        QColor wrong;
        QColor doubtful; ///< what may go wrong
        QColor shadow; ///< laid thinly over a picture that is pressed
    };

    ThemeMode mode;
    Bar bar;
    Bubble bubble;
    LargeType largeType;
    ErrorPanel errorPanel;
    Tray tray;
    Window window;
};

/// The theme of the mode, which lives as long as the program; the system's own is the dark or the
/// light one.
[[nodiscard]] const Theme &themeFor(ThemeMode mode, bool isSystemDark);

/// Radii of rounded corners by what has them, in logical pixels.
namespace CornerRadius {

inline constexpr int bar = 8;
inline constexpr int barButton = 4;
inline constexpr int bubble = 4;
inline constexpr int errorPanel = 12;
inline constexpr int errorPanelPart = 6;
inline constexpr int control = 5;
inline constexpr int tile = 6; ///< a tab or a cell with an image
inline constexpr int picture = 10;

}

/// Sizes of fonts by what is written in them, in logical pixels where the desktop's font has its
/// standard size.
namespace FontSize {

inline constexpr int barText = 12;
inline constexpr int barShortcut = 8;
inline constexpr int bubble = 11;
inline constexpr int largeType = 72;
inline constexpr int text = 13; ///< of windows
inline constexpr int note = 12;
inline constexpr int caption = 11; ///< below a picture, above a column, of a hint
inline constexpr int message = 11; ///< output of a program
inline constexpr int title = 14; ///< of a panel, a table
inline constexpr int section = 15;
inline constexpr int product = 22;

}

/// A length that text has to fit into: grows with the desktop's font, but does not shrink with it.
[[nodiscard]] int roomFor(int pixels);

/// The font in the size, which follows that of the desktop's font.
[[nodiscard]] QFont sized(const QFont &font, int pixels, QFont::Weight weight = QFont::Normal);

/// The same for what has one size on every desktop.
[[nodiscard]] QFont sizedExactly(QFont font, int pixels, QFont::Weight weight);

}
