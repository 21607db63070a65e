// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandKeys.h"

#include <QPromise>
#include <QTimer>

#include <optional>

struct org_kde_kwin_fake_input;
struct org_kde_kwin_keystate;
struct org_kde_kwin_keystate_listener;
struct wl_callback;
struct wl_callback_listener;

namespace Tessel {

/// KWin's fake input. Its keys share their modifiers with the user's.
class KWinFakeKeys final : public WaylandKeys
{
public:
    /// Only to programs whose desktop entry asks for it, and names their full path.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    explicit KWinFakeKeys(WaylandConnection &connection);
    ~KWinFakeKeys() override;

    [[nodiscard]] QFuture<void> whenReady() override;
    void press(quint32 scanCode, qint64 modifiers) override;

    /// Finishes when KWin has handled all keys so far.
    [[nodiscard]] QFuture<void> whenHandled();

private:
    void setState(quint32 key, quint32 state);
    void endWaiting();
    void send(quint32 evdevCode, bool isDown);

    static const wl_callback_listener handledListener;
    static const org_kde_kwin_keystate_listener stateListener;

    WaylandConnection &m_connection;
    WaylandPtr<org_kde_kwin_fake_input> m_input;

    WaylandPtr<wl_callback> m_handledCallback; ///< while somebody waits for it
    std::optional<QPromise<void>> m_handled;

    // While somebody waits for it only: it wakes us whenever the user presses a modifier.
    WaylandPtr<org_kde_kwin_keystate> m_modifierState;
    quint32 m_held = 0; ///< bits of its keys
    std::optional<QPromise<void>> m_ready;
    QTimer m_patience;
};

}
