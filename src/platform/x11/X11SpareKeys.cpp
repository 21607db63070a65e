// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11SpareKeys.h"

#include "platform/x11/X11Connection.h"

#include <array>
#include <xcb/xcb.h>

namespace Tessel {

namespace {

/// Each change is announced to every program on the desktop.
constexpr qsizetype maxKeys = 24;

}

X11SpareKeys::X11SpareKeys(X11Connection &connection, const QList<quint8> &keys)
    : m_connection(connection)
    , m_keys(keys.last(std::min(keys.size(), maxKeys)))
{
}

X11SpareKeys::~X11SpareKeys()
{
    for (const quint8 key : std::as_const(m_lent))
        map(key, XCB_NO_SYMBOL);
    xcb_flush(m_connection.xcb());
}

void X11SpareKeys::lend(const QList<quint32> &symbols)
{
    QList<quint8> free = m_keys;
    for (const quint8 key : std::as_const(m_lent))
        map(key, XCB_NO_SYMBOL);
    m_lent.clear();
    for (const quint32 symbol : symbols) {
        const quint8 key = free.takeFirst();
        map(key, symbol);
        m_lent.insert(symbol, key);
    }
}

std::optional<quint8> X11SpareKeys::keyFor(quint32 symbol) const
{
    const auto key = m_lent.constFind(symbol);
    return key == m_lent.constEnd() ? std::nullopt : std::optional(*key);
}

/// The same symbol with and without Shift keeps the server from adding an upper case.
void X11SpareKeys::map(quint8 key, quint32 symbol)
{
    const std::array<xcb_keysym_t, 2> levels = { symbol, symbol };
    xcb_change_keyboard_mapping(m_connection.xcb(), 1, key, levels.size(), levels.data());
}

}
