// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/SelectionText.h"
#include "platform/freedesktop/SelectionTransfer.h"
#include "platform/wayland/WaylandSelections.h"

#include <QSocketNotifier>

namespace Tessel {

/// A transfer through a pipe, whose end does not say whether all has been written. An owner that
/// has gone by then gives no selected text. As any text it does: some hand theirs out just once.
class WaylandSelectionTransfer final : public SelectionTransfer
{
    Q_OBJECT

public:
    using Selection = WaylandSelections::Selection;

    /// Gives up when the owner does nothing for `patience`, or after `limit` in all.
    WaylandSelectionTransfer(const WaylandSelections &selections, Selection selection,
                             std::chrono::milliseconds patience, std::chrono::milliseconds limit,
                             Accept accept = Accept::anyText);

private:
    /// What was asked for last.
    enum class Asked { hint, text };

    void request(Asked what, const QByteArray &mimeType);
    void requestText();
    void readPiece();
    void takeAnswer();
    void end(const std::optional<QByteArray> &text);

    const WaylandSelections &m_selections;
    Selection m_selection;
    Accept m_accept;
    Asked m_asked = Asked::text;
    TextFormat::Charset m_charset = TextFormat::Charset::utf8;
    QByteArray m_bytes;
    Descriptor m_pipe;
    QSocketNotifier m_readable { QSocketNotifier::Read };
};

}
