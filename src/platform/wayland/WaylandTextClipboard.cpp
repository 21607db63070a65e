// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandTextClipboard.h"

#include "platform/wayland/WaylandSelectionTransfer.h"

#include <QEventLoop>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

std::optional<QByteArray> WaylandTextClipboard::text()
{
    if (!m_connection.roundTrip()) // to learn what is there
        return {};
    m_connection.start();
    return WaylandSelectionTransfer(m_dataControl, WaylandSelections::Selection::clipboard, 2s,
                                    30s)
        .wait();
}

Result<void> WaylandTextClipboard::take(const QByteArray &text)
{
    m_source.setText(text);
    if (!m_connection.roundTrip())
        return Failure { u"The clipboard could not be taken."_s };
    return {};
}

void WaylandTextClipboard::serve()
{
    if (!m_source.isInUse())
        return;
    m_connection.start();
    QEventLoop loop;
    QObject::connect(&m_source, &WaylandTextSource::released, &loop, &QEventLoop::quit);
    QObject::connect(&m_connection, &WaylandConnection::lost, &loop, &QEventLoop::quit);
    loop.exec();
}

}
