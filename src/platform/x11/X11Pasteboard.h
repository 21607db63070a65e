// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Pasteboard.h"
#include "platform/x11/X11SelectionWatch.h"

#include <memory>

namespace Tessel {

class X11Connection;
class X11HeldText;
class X11SelectionReader;

/// Who hands out what is put on the clipboard: Qt can when its windows are on this X server.
enum class ClipboardHolder { qt, ourselves };

/// The CLIPBOARD selection. Changes are counted by XFixes, which tells of each new owner.
class X11Pasteboard final : public Pasteboard
{
public:
    X11Pasteboard(X11Connection &connection, X11SelectionReader &reader, ClipboardHolder holder);
    ~X11Pasteboard() override;

    [[nodiscard]] qint64 changeCount() const override { return m_changeCount; }
    [[nodiscard]] QFuture<std::optional<QString>>
    string(std::chrono::milliseconds patience) override;
    void setString(const QString &text) override;

private:
    X11SelectionReader &m_reader;
    ClipboardHolder m_holder;
    std::unique_ptr<X11HeldText> m_heldText; ///< the last one of ours
    quint32 m_clipboard;
    qint64 m_changeCount = 0;
    X11SelectionWatch m_watch;
};

}
