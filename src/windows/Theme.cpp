// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/Theme.h"

#include "platform/Appearance.h"

#include <QGuiApplication>

#include <algorithm>
#include <iterator>

namespace Tessel {

namespace {

constexpr QColor rgb(QRgb color, int alpha = 255)
{
    return { qRed(color), qGreen(color), qBlue(color), alpha };
}

constexpr QColor grey(int level, int alpha = 255)
{
    return { level, level, level, alpha };
}

constexpr QColor white(int alpha = 255)
{
    return grey(255, alpha);
}

constexpr QColor black(int alpha = 255)
{
    return grey(0, alpha);
}

constexpr Theme themes[] {
    {
        .mode = ThemeMode::light,
        .bar = { .ground = { .blended = grey(246, 247), .opaque = grey(246) },
                 .groundOverBlur = grey(246, 204),
                 .shadow = black(51),
                 .border = black(26),
                 .icon = black(),
                 .shortcut = black(179),
                 .highlight = black(26) },
        .bubble = { .ground = { .blended = black(217), .opaque = grey(30) },
                    .shadow = black(77),
                    .text = white() },
        .largeType = { .veil = black(217), .text = white() },
        .errorPanel = { .ground = grey(242),
                        .border = black(26),
                        .symbol = rgb(0xff3b30),
                        .text = black(),
                        .field = white(),
                        .scrollBar = rgb(0x808084),
                        .button = white(),
                        .buttonBorder = rgb(0xc9c9cc),
                        .focus = rgb(0x0a84ff),
                        .defaultButton = rgb(0x0a6cff),
                        .defaultButtonText = white() },
        .tray = { .image = grey(45), .contour = grey(245) },
        .window = { .ground = rgb(0xf4f4f6),
                    .text = rgb(0x1d1d1f),
                    .secondaryText = rgb(0x626267),
                    .disabledText = rgb(0xa5a5ab),
                    .field = white(),
                    .alternateRow = rgb(0xf5f5f8),
                    .button = white(),
                    .line = rgb(0xcfcfd5),
                    .accent = rgb(0x1f6feb),
                    .accentText = white(),
                    .link = rgb(0x0b57d0),
                    .visitedLink = rgb(0x6a3fb5),
                    .wrong = rgb(0xd0021b),
                    .doubtful = rgb(0x945200),
                    .shadow = black() },
    },
    {
        .mode = ThemeMode::dark,
        .bar = { .ground = { .blended = rgb(0x2a2a2c, 247), .opaque = rgb(0x2a2a2c) },
                 .groundOverBlur = rgb(0x2a2a2c, 204),
                 .shadow = black(51),
                 .border = white(51),
                 .icon = white(),
                 .shortcut = white(179),
                 .highlight = white(51) },
        .bubble = { .ground = { .blended = black(217), .opaque = grey(30) },
                    .shadow = black(77),
                    .text = white() },
        .largeType = { .veil = black(217), .text = white() },
        .errorPanel = { .ground = grey(51),
                        .border = white(26),
                        .symbol = rgb(0xff3b30),
                        .text = white(),
                        .field = black(),
                        .scrollBar = rgb(0x808084),
                        .button = rgb(0x454547),
                        .buttonBorder = rgb(0x5c5c5e),
                        .focus = rgb(0x0a84ff),
                        .defaultButton = rgb(0x0a6cff),
                        .defaultButtonText = white() },
        .tray = { .image = grey(245), .contour = grey(45) },
        .window = { .ground = rgb(0x1f1f22),
                    .text = rgb(0xf1f1f3),
                    .secondaryText = rgb(0xa5a5ab),
                    .disabledText = rgb(0x74747a),
                    .field = rgb(0x28282b),
                    .alternateRow = rgb(0x2f2f33),
                    .button = rgb(0x3a3a3f),
                    .line = rgb(0x4d4d53),
                    .accent = rgb(0x3178e6),
                    .accentText = white(),
                    .link = rgb(0x7db4ff),
                    .visitedLink = rgb(0xb79bf0),
                    .wrong = rgb(0xff6b63),
                    .doubtful = rgb(0xf2b64c),
                    .shadow = black() },
    },
};

/// By the application's font: WindowStyle gives it the desktop's size, unless the user has Qt
/// follow a theme, which may count in pixels.
int scaled(int pixels)
{
    const QFont font = QGuiApplication::font();
    const double points = font.pointSizeF() > 0 ? font.pointSizeF() : font.pixelSize() * 0.75;
    return qRound(pixels * points / Appearance::standardFontSize);
}

}

const Theme &themeFor(ThemeMode mode, bool isSystemDark)
{
    if (mode == ThemeMode::system)
        mode = isSystemDark ? ThemeMode::dark : ThemeMode::light;
    const auto theme = std::find_if(std::begin(themes), std::end(themes),
                                    [mode](const Theme &entry) { return entry.mode == mode; });
    return theme == std::end(themes) ? themes[0] : *theme;
}

int roomFor(int pixels)
{
    return std::max(pixels, scaled(pixels));
}

QFont sized(const QFont &font, int pixels, QFont::Weight weight)
{
    return sizedExactly(font, scaled(pixels), weight);
}

QFont sizedExactly(QFont font, int pixels, QFont::Weight weight)
{
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

}
