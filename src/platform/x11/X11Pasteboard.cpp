// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Pasteboard.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HeldText.h"
#include "platform/x11/X11SelectionReader.h"

#include <QClipboard>
#include <QGuiApplication>

namespace Tessel {

X11Pasteboard::X11Pasteboard(X11Connection &connection, X11SelectionReader &reader,
                             ClipboardHolder holder)
    : m_reader(reader)
    , m_holder(holder)
    , m_clipboard(connection.atom("CLIPBOARD"))
    , m_watch(connection, m_clipboard,
              [this](quint32 owner, quint32) { m_changeCount += owner ? 1 : 0; })
{
}

X11Pasteboard::~X11Pasteboard() = default;

QFuture<std::optional<QString>> X11Pasteboard::string(std::chrono::milliseconds patience)
{
    return m_reader.read(m_clipboard, patience);
}

void X11Pasteboard::setString(const QString &text)
{
    if (m_holder == ClipboardHolder::qt)
        QGuiApplication::clipboard()->setText(text);
    else if (auto held = X11HeldText::onClipboard(text))
        m_heldText = std::move(held);
}

}
