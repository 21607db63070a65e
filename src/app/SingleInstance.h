// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tessel {

/// One instance per user, by a lock file that holds the decimal process identifier of its owner.
namespace SingleInstance {

/// "com.tessel.app.lock" in $TMPDIR, else $XDG_RUNTIME_DIR, else /tmp.
[[nodiscard]] QString lockFilePath();

/// A signed 32-bit decimal number and nothing around it.
[[nodiscard]] std::optional<qint32> parseProcessId(const QByteArray &text);

/// The process that holds the lock; nothing when it has ended, or the lock cannot be read.
[[nodiscard]] std::optional<qint32> liveOwner(const QString &path);

/// Takes the lock unless its owner lives; gives the owner's process identifier then. What is not a
/// small file of this user counts as stale. An unreadable or unwritable file is reported and left
/// alone.
[[nodiscard]] std::optional<qint32> liveOwnerElseTakeLock(const QString &path);

}

}
