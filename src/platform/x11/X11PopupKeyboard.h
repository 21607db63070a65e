// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopupHost.h"
#include "platform/freedesktop/SessionLock.h"
#include "platform/x11/X11KeyGrabs.h"
#include "platform/x11/X11WindowManager.h"

#include <QHash>
#include <QPointer>
#include <QTimer>
#include <QWindow>

namespace Tessel {

class X11CurrentLayout;

/// The keys of popups, which never have the focus: single ones by passive grabs, or the whole
/// keyboard by an active one, for as long as nothing else needs it.
class X11PopupKeyboard final : public QObject
{
    Q_OBJECT

public:
    struct Services
    {
        X11Connection &connection;
        X11KeyGrabs &grabs;
        X11CurrentLayout &layout;
    };

    explicit X11PopupKeyboard(const Services &services);

    using Wants = std::function<bool(const PopupKey &)>;

    /// Learns the keyboard, so that the first popup is quick.
    void prepare();

    void takeKeys(QWindow *window, const Wants &wants);
    void releaseKeys(QWindow *window);

    bool takeKeyboard(QWindow *window);
    void releaseKeyboard(QWindow *window);

    /// Takes the keyboard from whichever popup has it.
    void releaseHeldKeyboard();

    /// Whether one of our popups has the keyboard.
    [[nodiscard]] bool holdsKeyboard() const;

Q_SIGNALS:
    void sessionLocked();

private:
    void handle(const X11Event &event);
    void grabWantedKeys(quint8 lockedModifiers);
    void deliver(const X11Stroke &stroke, X11KeyGrabs::Change change);

    Services m_services;
    X11WindowManager m_windowManager;
    SessionLock m_sessionLock;
    std::shared_ptr<void> m_rootEvents;
    std::shared_ptr<void> m_subscription;
    quint8 m_screenSaverEvent = 0; ///< 0: the server does not tell

    QList<std::pair<X11Stroke, PopupKey>> m_keyboard; ///< all keys that a popup could want
    int m_keyboardRevision = -1; ///< of the layout that they are of
    QPointer<QWindow> m_keysWindow; ///< that single keys go to
    Wants m_wants;
    quint8 m_locks = 0; ///< those that are on, of the keys that are taken
    std::unique_ptr<X11KeyGrabs::Hold> m_keys;

    QPointer<QWindow> m_keyboardWindow; ///< that has the whole keyboard
    quint32 m_activeWindow = 0; ///< when that was taken
    QTimer m_idle;
};

}
