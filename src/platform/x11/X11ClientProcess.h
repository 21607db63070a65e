// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

namespace Tessel {

class X11Connection;

/// The process that made a window or another resource (X Resource extension 1.2); 0 when the server
/// does not know it, as for clients of other machines. A program can have several connections, so
/// that this says more than whether two windows have the same client.
[[nodiscard]] qint64 x11ClientProcess(const X11Connection &connection, quint32 resource);

}
