// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/SelectionTransfer.h"

#include <memory>

namespace Tessel {

class X11Connection;
class X11Event;

/// A transfer by the ICCCM (section 2).
class X11SelectionTransfer final : public SelectionTransfer
{
    Q_OBJECT

public:
    X11SelectionTransfer(X11Connection &connection, quint32 selection,
                         std::chrono::milliseconds patience, std::chrono::milliseconds limit,
                         Accept accept = Accept::anyText);
    ~X11SelectionTransfer() override;

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
    [[nodiscard]] QByteArray utf8() const;

    X11Connection &m_connection;
    quint32 m_selection;
    quint32 m_owner; ///< of the selection, when it was asked
    quint32 m_window; ///< the requestor; an own one keeps concurrent requests apart
    quint32 m_property;
    Asked m_asked = Asked::text;
    int m_format = -1; ///< index of the text format that was asked for last; -1: none yet
    bool m_incremental = false;
    QByteArray m_bytes;
    std::shared_ptr<void> m_subscription;
};

}
