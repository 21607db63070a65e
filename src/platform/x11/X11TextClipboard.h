// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TextClipboard.h"
#include "platform/x11/X11SelectionOwner.h"

#include <memory>

namespace Tessel {

/// The CLIPBOARD selection.
class X11TextClipboard final : public TextClipboard
{
public:
    explicit X11TextClipboard(X11Connection &connection)
        : m_connection(connection)
    {
    }

    [[nodiscard]] std::optional<QByteArray> text() override;
    Result<void> take(const QByteArray &text) override;
    void serve() override;

private:
    X11Connection &m_connection;
    std::unique_ptr<X11SelectionOwner> m_owner;
};

}
