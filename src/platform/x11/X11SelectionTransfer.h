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
    /// What counts as text: all that can be had as text, or not that which nobody selected as such:
    /// the paths that file managers give for copied files, and what a password manager marks as
    /// secret.
    enum class Accept { anyText, selectedText };

    /// Gives up when the owner does nothing for `patience`, or after `limit` in all.
    X11SelectionTransfer(X11Connection &connection, quint32 selection,
                         std::chrono::milliseconds patience, std::chrono::milliseconds limit,
                         Accept accept = Accept::anyText);
    ~X11SelectionTransfer() override;

Q_SIGNALS:
    /// Once, never from the constructor. UTF-8 as the owner gave it, or made from ISO 8859-1.
    void finished(const std::optional<QByteArray> &text);

private:
    /// What was asked for last.
    enum class Asked { targets, passwordHint, text };

    void request(Asked what, const char *target);
    void requestNextFormat();
    void handle(const X11Event &event);
    void takeAnswer(quint32 property);
    void takeTargets(quint32 property);
    void takeText(quint32 property);
    void takePiece();
    void finish(const std::optional<QByteArray> &text);
    [[nodiscard]] QByteArray utf8() const;

    X11Connection &m_connection;
    quint32 m_selection;
    quint32 m_owner; ///< of the selection, when it was asked
    quint32 m_window; ///< the requestor; an own one keeps concurrent requests apart
    quint32 m_property;
    Asked m_asked = Asked::text;
    int m_format = -1; ///< index of the text format that was asked for last; -1: none yet
    bool m_incremental = false;
    bool m_isFinished = false;
    QByteArray m_bytes;
    QTimer m_patience; ///< until the owner's next step
    QTimer m_limit; ///< for the whole transfer
    std::shared_ptr<void> m_subscription;
};

}
