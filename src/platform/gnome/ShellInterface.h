// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/EventMonitor.h"
#include "platform/wayland/BusObject.h"
#include "platform/wayland/WaylandSelections.h"
#include "platform/wayland/WaylandWindows.h"

namespace Tessel {

/// What extensions/gnome/com.tessel.app.Shell.xml describes.
namespace ShellInterface {

inline const auto path = QStringLiteral("/com/tessel/app/Shell");
inline const auto name = QStringLiteral("com.tessel.app.Shell");

[[nodiscard]] BusObject object();

/// From "(tssub)" and a list of those.
[[nodiscard]] WaylandWindow windowOf(const QVariant &value);
[[nodiscard]] QList<WaylandWindow> windowsOf(const QVariant &value);

[[nodiscard]] constexpr uint numberOf(WaylandSelections::Selection selection)
{
    return selection == WaylandSelections::Selection::clipboard ? 1 : 0;
}

/// The argument of SetTrigger; empty for a key that no keyboard has.
[[nodiscard]] QString acceleratorOf(const KeyChord &chord);

/// The argument of PressKeys: a key by its native scan code (KeyCodes.h), after the modifiers (bits
/// of KeyCodes.h).
[[nodiscard]] QVariant keysOf(quint32 scanCode, qint64 modifiers);

}

}
