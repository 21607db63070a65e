// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QList>

#include <optional>

namespace Tessel {

class X11Connection;

/// Keys that the layout leaves empty, lent to characters that it lacks. They are emptied again by
/// the destructor, so everybody who was sent one of them must have looked it up by then.
class X11SpareKeys final
{
public:
    X11SpareKeys(X11Connection &connection, const QList<quint8> &keys);
    ~X11SpareKeys();
    Q_DISABLE_COPY_MOVE(X11SpareKeys)

    [[nodiscard]] qsizetype count() const { return m_keys.size(); }

    /// Gives each X keysym a key, in place of what was lent before. At most count() of them.
    void lend(const QList<quint32> &symbols);
    [[nodiscard]] std::optional<quint8> keyFor(quint32 symbol) const;

private:
    void map(quint8 key, quint32 symbol);

    X11Connection &m_connection;
    QList<quint8> m_keys;
    QHash<quint32, quint8> m_lent; ///< keys by symbol
};

}
