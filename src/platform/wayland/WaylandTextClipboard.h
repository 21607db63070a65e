// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/TextClipboard.h"
#include "platform/wayland/WaylandTextSource.h"

namespace Tessel {

/// The clipboard by data control.
class WaylandTextClipboard final : public TextClipboard
{
public:
    explicit WaylandTextClipboard(WaylandConnection &connection)
        : m_connection(connection)
    {
    }

    [[nodiscard]] std::optional<QByteArray> text() override;
    Result<void> take(const QByteArray &text) override;
    void serve() override;

private:
    WaylandConnection &m_connection;
    WaylandDataControl m_dataControl { m_connection };
    WaylandTextSource m_source { m_dataControl };
};

}
