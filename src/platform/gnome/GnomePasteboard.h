// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"
#include "platform/gnome/BareDesktop.h"

namespace Tessel {

/// By the shell's extension, else by X11, whose clipboard is that of all applications.
class GnomePasteboard final : public Pasteboard
{
public:
    GnomePasteboard(Pasteboard &byShell, const BareDesktop &bare)
        : m_byShell(byShell)
        , m_bare(bare)
    {
    }

    [[nodiscard]] qint64 changeCount() const override { return current().changeCount(); }
    [[nodiscard]] QFuture<std::optional<QString>>
    string(std::chrono::milliseconds patience) override
    {
        return current().string(patience);
    }
    void setString(const QString &text) override { current().setString(text); }

private:
    [[nodiscard]] Pasteboard &current() const
    {
        Platform *x11 = m_bare.x11();
        return x11 ? x11->pasteboard() : m_byShell;
    }

    Pasteboard &m_byShell;
    const BareDesktop &m_bare;
};

}
