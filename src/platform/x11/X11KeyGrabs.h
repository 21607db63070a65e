// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>

#include <functional>
#include <memory>

namespace Tessel {

class X11Connection;
class X11Event;

/// A key (X keycode) in a state of the modifiers (the core protocol's modifier mask, locks
/// included).
struct X11Stroke
{
    quint8 key = 0;
    quint8 modifiers = 0;

    friend bool operator==(const X11Stroke &, const X11Stroke &) = default;
};

/// Single keys that come to us in place of the window that has the focus: passive grabs on the root
/// window. All other keys stay where they are, so that screens can be locked and windows switched.
/// While one of these keys is down the whole keyboard is ours, unless it is given back.
class X11KeyGrabs final
{
public:
    enum class Change { press, repeat, release };
    using Handler = std::function<void(const X11Stroke &stroke, Change change)>;

    /// Keys taken together; they are free again when it is destroyed. Must not outlive the grabs.
    class Hold
    {
    public:
        virtual ~Hold() = default;
        /// Whether each of them is ours: another client may hold some already. Waits for the
        /// server's answer.
        [[nodiscard]] virtual bool isComplete() = 0;
    };

    explicit X11KeyGrabs(X11Connection &connection);
    ~X11KeyGrabs();

    /// Takes the keys that no other client and no other hold has. Null without the X Input
    /// Extension 2.
    [[nodiscard]] std::unique_ptr<Hold> take(const QList<X11Stroke> &strokes, Handler handler);

    /// Whether this press comes to us, or would if no other client had grabbed the keyboard.
    [[nodiscard]] bool holds(const X11Stroke &stroke) const;

    /// Lets all keys go to the application again, the one that is down included.
    void giveKeyboardBack();

private:
    class Taken;

    void handle(const X11Event &event);

    X11Connection &m_connection;
    quint16 m_keyboard = 0; ///< the master keyboard; 0: none
    QList<Taken *> m_taken;
    Taken *m_active = nullptr; ///< whose key is down
    std::shared_ptr<void> m_subscription;
};

/// The strokes with the Shift, Control, Alt and Super bits as they are, and all states of these
/// locks (a modifier mask).
[[nodiscard]] QList<X11Stroke> inAllLockStates(const X11Stroke &stroke, quint8 locks);

}
