// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandSelectionTransfer.h"

#include <array>
#include <cerrno>

#include <unistd.h>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr qsizetype pipeSize = 1 << 16; // a text that is smaller is there at once, or not at all
constexpr auto untilOwnersEndIsTold = 50ms; // a dying one's pipe may be closed first

}

WaylandSelectionTransfer::WaylandSelectionTransfer(const WaylandSelections &selections,
                                                   Selection selection,
                                                   std::chrono::milliseconds patience,
                                                   std::chrono::milliseconds limit, Accept accept)
    : SelectionTransfer(patience, limit)
    , m_selections(selections)
    , m_selection(selection)
    , m_accept(accept)
{
    connect(&m_readable, &QSocketNotifier::activated, this, &WaylandSelectionTransfer::readPiece);
    connect(&selections, &WaylandSelections::changed, this, [this](Selection changed) {
        // With another owner, the answer of the one before is of no use any more.
        const bool hasOwner = !m_selections.mimeTypes(m_selection).isEmpty();
        if (changed == m_selection && (hasOwner || m_accept == Accept::selectedText))
            end({});
    });
    const QList<QByteArray> &offered = selections.mimeTypes(selection);
    const bool isForCapture = accept == Accept::selectedText;
    if (isForCapture && offered.contains(copiedFiles))
        end({});
    else if (isForCapture && offered.contains(passwordHint))
        request(Asked::hint, passwordHint);
    else
        requestText();
}

void WaylandSelectionTransfer::requestText()
{
    const auto format = textFormatOf(m_selections.mimeTypes(m_selection));
    if (!format)
        return end({});
    m_charset = format->charset;
    request(Asked::text, format->name);
}

void WaylandSelectionTransfer::request(Asked what, const QByteArray &mimeType)
{
    m_asked = what;
    m_bytes.clear();
    m_pipe = m_selections.receive(m_selection, mimeType);
    if (!m_pipe.isValid())
        return end({});
    m_readable.setSocket(m_pipe.number());
    m_readable.setEnabled(true);
    awaitOwner();
}

void WaylandSelectionTransfer::readPiece()
{
    std::array<char, pipeSize> piece;
    const ssize_t size = read(m_pipe.number(), piece.data(), piece.size());
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (size < 0)
        return end({});
    if (size == 0)
        return takeAnswer();
    m_bytes.append(piece.data(), size);
    if (m_bytes.size() > maxSelectionBytes)
        end({});
    else
        awaitOwner();
}

void WaylandSelectionTransfer::takeAnswer()
{
    m_readable.setEnabled(false);
    if (m_asked == Asked::hint)
        return m_bytes == secretHint ? end({}) : requestText();
    const auto endWithText = [this] { end(toUtf8(m_bytes, m_charset)); };
    if (m_accept == Accept::selectedText && m_bytes.size() >= pipeSize)
        QTimer::singleShot(untilOwnersEndIsTold, this, endWithText);
    else
        endWithText();
}

void WaylandSelectionTransfer::end(const std::optional<QByteArray> &text)
{
    m_readable.setEnabled(false);
    finish(text);
}

}
