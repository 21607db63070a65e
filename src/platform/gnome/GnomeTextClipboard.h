// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TextClipboard.h"

namespace Tessel {

/// The clipboard by the shell, which keeps what is put there.
class GnomeTextClipboard final : public TextClipboard
{
public:
    [[nodiscard]] std::optional<QByteArray> text() override;
    Result<void> take(const QByteArray &text) override;
    void serve() override { }
};

}
