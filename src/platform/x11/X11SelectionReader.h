// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>
#include <QObject>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace Tessel {

class X11Connection;
class X11SelectionTransfer;

/// Fetches the text of a selection (ICCCM, section 2), large ones in pieces (INCR), without ever
/// waiting for the owner.
class X11SelectionReader final : public QObject
{
    Q_OBJECT

public:
    explicit X11SelectionReader(X11Connection &connection);
    ~X11SelectionReader() override;

    /// Nothing when the selection has no text, or is copied files, or when its owner does nothing
    /// for `patience`.
    [[nodiscard]] QFuture<std::optional<QString>> read(quint32 selection,
                                                       std::chrono::milliseconds patience);

private:
    X11Connection &m_connection;
    std::vector<std::unique_ptr<X11SelectionTransfer>> m_transfers;
};

}
