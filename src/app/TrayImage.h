// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace Tessel {

class ResourceBundle;

/// The tray image in the colour that suits the desktop, with a thin contour of the opposite one: a
/// panel may be dark on a light desktop. Falls back to a star without the artwork.
[[nodiscard]] QIcon trayIcon(const ResourceBundle &bundle, bool isDesktopDark);

}
