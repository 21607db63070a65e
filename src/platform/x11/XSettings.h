// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/DesktopLook.h"

#include <QHash>
#include <QVariant>

namespace Tessel {

/// The settings of a property _XSETTINGS_SETTINGS (XSETTINGS, section "_XSETTINGS_SETTINGS
/// Format"): strings as QByteArray, integers as int; colours are left out. Of a property that is
/// damaged, what stands before the damage.
[[nodiscard]] QHash<QByteArray, QVariant> parseXSettings(const QByteArray &property);

/// What they say of the desktop's look.
[[nodiscard]] DesktopLook lookOfXSettings(const QHash<QByteArray, QVariant> &settings);

}
