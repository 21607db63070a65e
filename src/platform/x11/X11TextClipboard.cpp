// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11TextClipboard.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11SelectionTransfer.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto selection = "CLIPBOARD";

}

std::optional<QByteArray> X11TextClipboard::text()
{
    m_connection.start();
    return X11SelectionTransfer(m_connection, m_connection.atom(selection), 2s, 30s).wait();
}

Result<void> X11TextClipboard::take(const QByteArray &text)
{
    m_owner = std::make_unique<X11SelectionOwner>(m_connection, selection, text);
    if (!m_owner->take())
        return Failure { u"The clipboard could not be taken."_s };
    return {};
}

void X11TextClipboard::serve()
{
    m_owner->serve();
}

}
