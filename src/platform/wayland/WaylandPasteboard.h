// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"
#include "platform/wayland/WaylandTextSource.h"

namespace Tessel {

class WaylandSelectionReader;

/// The clipboard by data control: Qt can neither read nor set it while another program is in front.
class WaylandPasteboard final : public Pasteboard
{
public:
    WaylandPasteboard(WaylandDataControl &dataControl, WaylandSelectionReader &reader);

    [[nodiscard]] qint64 changeCount() const override;
    [[nodiscard]] QFuture<std::optional<QString>>
    string(std::chrono::milliseconds patience) override;
    void setString(const QString &text) override;

private:
    const WaylandDataControl &m_dataControl;
    WaylandSelectionReader &m_reader;
    WaylandTextSource m_source;
};

}
