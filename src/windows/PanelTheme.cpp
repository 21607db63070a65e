// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/PanelTheme.h"

namespace Tessel {

namespace {

QColor white(double alpha)
{
    return QColor::fromRgbF(1, 1, 1, float(alpha));
}

QColor black(double alpha)
{
    return QColor::fromRgbF(0, 0, 0, float(alpha));
}

}

PanelTheme panelTheme(ThemeMode mode, bool isSystemDark, bool isCompositing)
{
    const bool isDark = mode == ThemeMode::dark || (mode == ThemeMode::system && isSystemDark);
    const int materialAlpha = isCompositing ? 247 : 255;
    if (isDark)
        return { true,      QColor(42, 42, 44, materialAlpha), white(0.2), white(1), white(0.7),
                 white(0.2) };
    return { false,     QColor(246, 246, 246, materialAlpha), black(0.1), black(1), black(0.7),
             black(0.1) };
}

}
