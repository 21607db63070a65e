// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>
#include <QString>

#include <chrono>
#include <optional>

namespace Tessel {

/// The general pasteboard (on X11 the CLIPBOARD selection of the ICCCM).
class Pasteboard
{
public:
    virtual ~Pasteboard() = default;

    /// Rises each time that somebody puts something on the pasteboard, the same text included.
    [[nodiscard]] virtual qint64 changeCount() const = 0;

    /// The plain text on the pasteboard; nothing when there is none, as for copied files, when a
    /// password manager marks it as secret, or when its owner makes no progress for as long as
    /// `patience`. The future always finishes; the main thread never waits.
    [[nodiscard]] virtual QFuture<std::optional<QString>> string(std::chrono::milliseconds patience)
        = 0;

    /// Replaces the content by plain text.
    virtual void setString(const QString &text) = 0;
};

}
