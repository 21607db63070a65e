// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11SelectionReader.h"

#include "base/TextRules.h"
#include "platform/x11/X11SelectionTransfer.h"

#include <QPromise>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

QString decoded(QByteArrayView utf8)
{
    while (utf8.endsWith('\0')) // some owners count the terminator
        utf8.chop(1);
    return exactText(utf8);
}

}

X11SelectionReader::X11SelectionReader(X11Connection &connection)
    : m_connection(connection)
{
}

X11SelectionReader::~X11SelectionReader() = default;

QFuture<std::optional<QString>> X11SelectionReader::read(quint32 selection,
                                                         std::chrono::milliseconds patience)
{
    auto promise = std::make_shared<QPromise<std::optional<QString>>>();
    promise->start();
    auto transfer = std::make_unique<X11SelectionTransfer>(
        m_connection, selection, patience, 3s, X11SelectionTransfer::Accept::selectedText);
    connect(transfer.get(), &X11SelectionTransfer::finished, this,
            [this, promise, done = transfer.get()](const std::optional<QByteArray> &text) {
                promise->addResult(text ? std::optional(decoded(*text)) : std::nullopt);
                promise->finish();
                const auto entry = std::find_if(
                    m_transfers.begin(), m_transfers.end(),
                    [done](const auto &candidate) { return candidate.get() == done; });
                entry->release()->deleteLater();
                m_transfers.erase(entry);
            });
    m_transfers.push_back(std::move(transfer));
    return promise->future();
}

}
