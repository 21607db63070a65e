// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandKeymap.h"
#include "platform/wayland/WaylandKeys.h"

struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace Tessel {

/// A keyboard with a layout and modifiers of its own beside those of the user
/// (virtual-keyboard-unstable-v1), there from the first need on.
class WaylandKeyboard final : public WaylandKeys
{
public:
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    explicit WaylandKeyboard(WaylandConnection &connection);
    ~WaylandKeyboard() override;

    void prepare() override;
    [[nodiscard]] QFuture<void> whenReady() override { return QtFuture::makeReadyFuture(); }
    void press(quint32 scanCode, qint64 modifiers) override;

    /// In place of a US one.
    void setKeymap(const WaylandKeymap &keymap);

    /// Presses the keys one after the other while the modifiers are held, and Shift where a stroke
    /// has it. A program that reads nothing meanwhile is cut off by its compositor when too much
    /// has gathered (tried: after some 1,300 keys on sway 1.7).
    void press(const QList<WaylandKeymap::Stroke> &strokes, qint64 modifiers);

private:
    void hold(qint64 modifiers, quint32 group);
    void send(quint32 evdevCode, quint32 state);

    WaylandConnection &m_connection;
    WaylandPtr<zwp_virtual_keyboard_manager_v1> m_manager;
    WaylandPtr<zwp_virtual_keyboard_v1> m_keyboard;
    bool m_hasKeymap = false;
    qint64 m_held = 0; ///< modifier bits (KeyCodes.h)
    quint32 m_group = 0;
};

}
