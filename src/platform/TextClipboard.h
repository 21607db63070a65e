// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QByteArray>

#include <optional>

namespace Tessel {

/// The clipboard's text, byte for byte, for programs that have nothing else to do: the calls wait.
/// Needs the application object.
class TextClipboard
{
public:
    virtual ~TextClipboard() = default;

    /// Nothing when the clipboard has no text, or its owner does nothing for two seconds or takes
    /// longer than half a minute.
    [[nodiscard]] virtual std::optional<QByteArray> text() = 0;

    /// Becomes the clipboard's owner; serve() has to follow.
    virtual Result<void> take(const QByteArray &text) = 0;

    /// Hands out what was taken until another owner has taken over and nobody is being served any
    /// more, or until the desktop goes away.
    virtual void serve() = 0;
};

}
