// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "clipboard/ClipboardReader.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11SelectionTransfer.h"

#include <QEventLoop>

using namespace std::chrono_literals;

namespace Tessel {

std::optional<QByteArray> clipboardText(X11Connection &connection)
{
    std::optional<QByteArray> result;
    QEventLoop loop;
    const X11SelectionTransfer transfer(connection, connection.atom("CLIPBOARD"), 2s, 30s);
    QObject::connect(&transfer, &X11SelectionTransfer::finished, &loop,
                     [&result, &loop](const std::optional<QByteArray> &text) {
                         result = text;
                         loop.quit();
                     });
    loop.exec();
    return result;
}

}
