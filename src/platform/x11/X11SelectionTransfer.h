// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

namespace Tessel {

class X11Connection;
class X11Event;

/// One request for the text of a selection. The owner may be slow, dead or lying. More than 64 MiB
/// count as no text.
class X11SelectionTransfer final : public QObject
{
    Q_OBJECT

public:
    /// File managers give the paths of copied files as text, too.
    enum class Files { areText, areNoText };

    /// Gives up when the owner does nothing for `patience`, or after `limit` in all.
    X11SelectionTransfer(X11Connection &connection, quint32 selection,
                         std::chrono::milliseconds patience, std::chrono::milliseconds limit,
                         Files files = Files::areText);
    ~X11SelectionTransfer() override;

Q_SIGNALS:
    /// Once, never from the constructor. UTF-8 as the owner gave it, or made from ISO 8859-1.
    void finished(const std::optional<QByteArray> &text);

private:
    void request(const char *target);
    void requestNextTarget();
    void handle(const X11Event &event);
    void takeAnswer(quint32 property);
    void takePiece();
    void finish(const std::optional<QByteArray> &text);
    [[nodiscard]] QByteArray utf8() const;

    X11Connection &m_connection;
    quint32 m_selection;
    quint32 m_owner; ///< of the selection, when it was asked
    quint32 m_window; ///< the requestor; an own one keeps concurrent requests apart
    quint32 m_property;
    int m_target = -1; ///< index of the text format that was asked for last; -1: none yet
    bool m_incremental = false;
    bool m_isFinished = false;
    QByteArray m_bytes;
    QTimer m_patience; ///< until the owner's next step
    QTimer m_limit; ///< for the whole transfer
    std::shared_ptr<void> m_subscription;
};

}
