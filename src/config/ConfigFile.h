// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArray>

#include <optional>

namespace Tessel {

/// A configuration on the disk. Only regular files of at most 256 MiB are read or written: no pipe
/// is waited for, no device fills the memory, and nothing else is replaced.
namespace ConfigFile {

/// Nothing when there is no file, or none that this user may read; a Failure when what is there is
/// not taken for a configuration.
[[nodiscard]] Result<std::optional<QByteArray>> read(const QString &path);

/// Writes in place, through links too. The room is reserved first: when there is none, the file is
/// as it was. `mode`: of a new file, before the umask.
[[nodiscard]] Result<void> write(const QString &path, const QByteArray &content, uint mode = 0666);

}

}
