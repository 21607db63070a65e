// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <optional>

namespace Tessel {

class ResourceBundle;

/// The tray image in the colour that the tray asks for. Where it asks for none: in the one that
/// suits the desktop, with a thin contour of the opposite one, as a panel may be dark on a light
/// desktop. Hosts that colour images themselves get the name of one from the icon theme, when it is
/// installed. Falls back to a star without the artwork.
[[nodiscard]] QIcon trayIcon(const ResourceBundle &bundle, bool isDesktopDark,
                             std::optional<QRgb> color);

}
