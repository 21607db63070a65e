// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace Tessel {

/// One request for the text of a selection, whose owner may be slow, dead or lying. More than
/// maxSelectionBytes count as no text.
class SelectionTransfer : public QObject
{
    Q_OBJECT

public:
    /// What counts as text: all that can be had as text, or not that which nobody selected as such:
    /// the paths that file managers give for copied files, and what a password manager marks as
    /// secret.
    enum class Accept { anyText, selectedText };

    /// Waits for the end in an event loop of its own: for programs that have nothing else to do.
    [[nodiscard]] std::optional<QByteArray> wait();

Q_SIGNALS:
    /// Once, never from the constructor. UTF-8 as the owner gave it, or made from ISO 8859-1.
    void finished(const std::optional<QByteArray> &text);

protected:
    /// Gives up when the owner does nothing for `patience`, or after `limit` in all.
    SelectionTransfer(std::chrono::milliseconds patience, std::chrono::milliseconds limit);

    void awaitOwner() { m_patience.start(); } ///< it has done something, or been asked to
    void finish(const std::optional<QByteArray> &text); ///< only the first one counts
    [[nodiscard]] bool isFinished() const { return m_isFinished; }

private:
    bool m_isFinished = false;
    QTimer m_patience; ///< until the owner's next step
    QTimer m_limit; ///< for the whole transfer
};

}
