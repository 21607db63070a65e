// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace Tessel {

/// Starts a program, looked for on the PATH, that goes its own way: in a session of its own,
/// without our standard streams. Nothing, or why it could not be started.
[[nodiscard]] std::optional<QString> startDetached(const QStringList &command,
                                                   const QString &workingFolder = {});

}
