// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "config/AppConfig.h"

#include <QColor>

namespace Tessel {

/// Colours of the bar.
struct PanelTheme
{
    bool isDark = false;
    QColor material; ///< ground of the bar; opaque where nothing blends it
    QColor border;
    QColor icon; ///< tint of template images and text
    QColor shortcut;
    QColor highlight; ///< under the pointer
};

/// `isCompositing`: whether a translucent ground is possible.
[[nodiscard]] PanelTheme panelTheme(ThemeMode mode, bool isSystemDark, bool isCompositing);

}
