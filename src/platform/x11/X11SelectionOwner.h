// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>

#include <optional>

namespace Tessel {

class X11Connection;
class X11Event;

/// Owns a selection and hands out its text (ICCCM, section 2), large ones in pieces (INCR). The
/// bytes go out as they are as UTF8_STRING, text/plain and TEXT, and as STRING if ISO 8859-1 can
/// hold them. SAVE_TARGETS of the clipboard manager specification is not offered: it would tell the
/// manager that the owner asks it to take the text before it ends, but this one ends no earlier
/// than the session.
class X11SelectionOwner final
{
public:
    X11SelectionOwner(X11Connection &connection, const char *selection, const QByteArray &text);

    /// False when the server did not make it the owner.
    [[nodiscard]] bool take();

    /// Answers a request, and goes on with what is being served.
    void handle(const X11Event &event);

    /// Does that until another owner has taken over and nobody is being served any more, or
    /// until the server goes away. The connection must be used by nobody else.
    void serve();

private:
    struct Content
    {
        quint32 type = 0;
        QByteArray bytes;
    };

    /// A transfer in pieces under way.
    struct Transfer
    {
        quint32 requestor = 0;
        quint32 property = 0;
        Content content;
        qsizetype sent = 0;
    };

    [[nodiscard]] quint32 currentTime() const;
    void answer(const X11Event &event);
    [[nodiscard]] bool convert(quint32 requestor, quint32 target, quint32 property);
    [[nodiscard]] bool convertMultiple(quint32 requestor, quint32 property);
    [[nodiscard]] QList<quint32> targetList() const;
    void setItems(quint32 window, quint32 property, quint32 type, const QList<quint32> &items);
    void sendContent(quint32 requestor, quint32 property, const Content &content);
    void sendPiece(quint32 requestor, quint32 property);
    void forget(quint32 requestor);

    X11Connection &m_connection;
    quint32 m_selection;
    quint32 m_window;
    quint32 m_time = 0; ///< since when it is the owner
    bool m_isOwner = false;
    qsizetype m_pieceSize;
    QHash<quint32, Content> m_contents; ///< by target
    QList<Transfer> m_transfers;
};

}
