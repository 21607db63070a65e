// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"
#include "platform/gnome/ShellSelections.h"
#include "platform/wayland/WaylandSelectionReader.h"

namespace Tessel {

/// The clipboard by the shell, which keeps what is put there.
class ShellPasteboard final : public Pasteboard
{
public:
    ShellPasteboard(ShellSelections &selections, WaylandSelectionReader &reader)
        : m_selections(selections)
        , m_reader(reader)
    {
    }

    [[nodiscard]] qint64 changeCount() const override { return m_selections.changeCount(); }
    [[nodiscard]] QFuture<std::optional<QString>>
    string(std::chrono::milliseconds patience) override
    {
        return m_reader.read(WaylandSelections::Selection::clipboard, patience);
    }
    void setString(const QString &text) override { m_selections.setClipboard(text); }

private:
    ShellSelections &m_selections;
    WaylandSelectionReader &m_reader;
};

}
