// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace Tessel {

class X11Connection;

/// The clipboard's text, byte for byte as its owner gives it. Nothing when it has no text, or its
/// owner does nothing for two seconds or takes longer than half a minute. Waits for that in an
/// event loop of its own, on a connection that was started.
[[nodiscard]] std::optional<QByteArray> clipboardText(X11Connection &connection);

}
