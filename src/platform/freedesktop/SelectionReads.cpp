// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SelectionReads.h"

#include "platform/freedesktop/SelectionText.h"
#include "platform/freedesktop/SelectionTransfer.h"

#include <QPromise>

#include <algorithm>

namespace Tessel {

SelectionReads::SelectionReads() = default;
SelectionReads::~SelectionReads() = default;

QFuture<std::optional<QString>> SelectionReads::add(std::unique_ptr<SelectionTransfer> transfer)
{
    auto promise = std::make_shared<QPromise<std::optional<QString>>>();
    promise->start();
    connect(transfer.get(), &SelectionTransfer::finished, this,
            [this, promise, done = transfer.get()](const std::optional<QByteArray> &text) {
                promise->addResult(text ? std::optional(selectedText(*text)) : std::nullopt);
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
