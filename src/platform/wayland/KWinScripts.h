// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// The scripts that KWinBridge runs in KWin 5.27 and 6. They call the methods of the object
/// /KWin, interface com.tessel.app.KWin, of the bus client `service`.
namespace KWinScripts {

/// KGlobalAccel's name for the trigger, an action of its component "kwin".
inline constexpr char16_t triggerAction[] = u"tessel-trigger";

/// Calls update(state) when something has changed, and trigger(state) when the action is invoked,
/// also when its key repeats. The action is registered without a key. The state is JSON:
/// { "active": id or "", "windows": [{ "id", "application", "title", "processId", "isMinimized" }],
/// "workAreas": [{ "x", "y", "width", "height" }] }. Ends when the client has left the bus.
[[nodiscard]] QString watch(const QString &service, qint64 ourProcess);

/// Runs the statement for the window with this id as `window`, then calls finish(name).
[[nodiscard]] QString request(const QString &service, const QString &name, const QString &window,
                              const QString &statement);

}

}
