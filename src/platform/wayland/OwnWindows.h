// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QWindow>

namespace Tessel {

struct WaylandWindow;

/// Windows of this process, as Qt and as the compositor know them.
namespace OwnWindows {

/// The visible one with this QWindow::winId(); null when there is none.
[[nodiscard]] QWindow *withId(quint64 id);

[[nodiscard]] bool isSame(const WaylandWindow &listed, const QWindow &window);

/// A window that is shown anew gets the keyboard, one that asks for it does not.
void showAnew(QWindow &window);

}

}
