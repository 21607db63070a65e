// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringView>

#include <optional>

namespace Tessel {

/// What one of the desktop's settings says of how windows should look; nothing where it is silent.
struct DesktopLook
{
    std::optional<bool> isDark;
    std::optional<double> fontSize; ///< points, more than 0

    friend bool operator==(const DesktopLook &, const DesktopLook &) = default;
};

/// Nothing without a name. Themes have no other mark: "Adwaita-dark", "Mint-Y-Dark-Aqua",
/// "HighContrastInverse"; "Arc-Darker" is light.
[[nodiscard]] std::optional<bool> isDarkTheme(QStringView name);

/// The size in a font's description as Pango has it, "Noto Sans Bold 10.5".
[[nodiscard]] std::optional<double> sizeOfPangoFont(QStringView description);

/// Content of KDE's file "kdeglobals".
[[nodiscard]] DesktopLook lookOfKdeGlobals(const QByteArray &content);

/// That of the user, then those of the system (XDG Base Directory Specification).
[[nodiscard]] DesktopLook readKdeGlobals();

}
