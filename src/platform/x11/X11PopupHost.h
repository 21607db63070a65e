// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopupHost.h"

#include <QPointer>
#include <QWindow>

namespace Tessel {

class X11Connection;
class X11Workspace;

/// Popups are override-redirect windows: no window manager places, decorates or activates them.
class X11PopupHost final : public PopupHost
{
public:
    X11PopupHost(X11Connection &connection, X11Workspace &workspace);

    [[nodiscard]] QFuture<PopupLocation> locate() override;
    [[nodiscard]] bool isCompositing() const override;
    [[nodiscard]] Qt::WindowFlags windowFlags() const override;
    void adopt(QWindow *window) override;
    void setActiveRegion(QWindow *window, const QRect &region, int cornerRadius) override;
    bool takeKeyboard(QWindow *window) override;
    void releaseKeyboard(QWindow *window) override;

    /// Takes the keyboard from whichever popup has it: a menu that a click opens in another
    /// application could not grab it else.
    void releaseHeldKeyboard();

    /// Whether one of our popups has the keyboard.
    [[nodiscard]] bool holdsKeyboard() const;

private:
    [[nodiscard]] QRect visibleFrame(const QRect &nativeScreen) const;

    X11Connection &m_connection;
    X11Workspace &m_workspace;
    QPointer<QWindow> m_keyboardWindow;
};

}
