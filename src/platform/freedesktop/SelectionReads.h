// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace Tessel {

class SelectionTransfer;

/// The transfers that are under way.
class SelectionReads final : public QObject
{
    Q_OBJECT

public:
    SelectionReads();
    ~SelectionReads() override;

    /// Keeps the transfer until it has finished; the result is its text.
    [[nodiscard]] QFuture<std::optional<QString>> add(std::unique_ptr<SelectionTransfer> transfer);

private:
    std::vector<std::unique_ptr<SelectionTransfer>> m_transfers;
};

}
