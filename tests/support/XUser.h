// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ChildProcess.h"

#include <QImage>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace Tessel::Desktop {

// A mapped top-level window as a program made it, without the window manager's frame.
struct WindowInfo
{
    quint32 id = 0;
    QRect geometry; // pixels of the root window
    QString className; // second string of WM_CLASS
    QString title;
    qint64 processId = 0; // _NET_WM_PID; 0 when the window does not say
    bool overrideRedirect = false;
};

// The hands and eyes of a user on one X server, over a connection of their own.
//
// Keys come from the server's own ("hardware") keyboard where it has one, as under Xvfb, and else
// from the XTEST keyboard: a program that synthesises keys through XTEST has to cope with keys that
// are held on another device, as on a real desktop. Keys are named by X keysym (XKB_KEY_… of
// xkbcommon-keysyms.h) and looked up in the active layout group. Positions and sizes are pixels.
class XUser final
{
public:
    explicit XUser(const QString &display);
    ~XUser();
    Q_DISABLE_COPY_MOVE(XUser)

    [[nodiscard]] bool isConnected() const;

    // Hands at the keyboard. False when the layout has no such key; nothing is pressed then.
    bool press(quint32 keysym);
    bool release(quint32 keysym);
    bool tap(quint32 keysym, const QList<quint32> &held = {});
    bool typeText(const QString &text);
    void releaseAllKeys();

    // Hands at the pointer. A scroll step is one click of the wheel, positive towards the user.
    void movePointer(const QPoint &position);
    void pressButton(int button = 1);
    void releaseButton(int button = 1);
    void click(const QPoint &position, int count = 1, int button = 1);
    void scroll(int steps);

    // Eyes on the devices. Modifiers are the effective core ones (bit 0 Shift, 1 Lock, 2 Control,
    // …).
    [[nodiscard]] QList<quint8> pressedKeycodes() const;
    [[nodiscard]] quint8 modifiers() const;
    // Whether a program has taken the whole keyboard.
    [[nodiscard]] bool isKeyboardGrabbed() const;

    // Eyes on the windows, bottom to top.
    using Match = std::function<bool(const WindowInfo &)>;
    [[nodiscard]] QList<WindowInfo> windows() const;
    [[nodiscard]] std::optional<WindowInfo> window(quint32 id) const;
    [[nodiscard]] std::optional<WindowInfo> findWindow(const Match &match) const;
    [[nodiscard]] std::optional<WindowInfo>
    waitForWindow(const Match &match, std::chrono::milliseconds timeout = defaultTimeout) const;
    [[nodiscard]] bool waitUntilGone(quint32 id,
                                     std::chrono::milliseconds timeout = defaultTimeout) const;

    // What the window manager calls active; 0: none.
    [[nodiscard]] quint32 activeWindow() const;
    // It gets the keys: the focus is on it or inside it, and a window manager calls it active.
    [[nodiscard]] bool isUsable(quint32 id) const;
    [[nodiscard]] bool waitUntilUsable(quint32 id,
                                       std::chrono::milliseconds timeout = defaultTimeout) const;
    // Asks the window manager to activate the window, as a task bar does.
    void activate(quint32 id);

    // What is on the screen there (RGB32), by default everywhere; null outside of it.
    [[nodiscard]] QImage screenshot(const QRect &area = {}) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};

}
