// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopupHost.h"

namespace Tessel {

class X11Connection;
class X11PopupKeyboard;
class X11Workspace;

/// Popups are override-redirect windows: no window manager places, decorates or activates them.
class X11PopupHost final : public PopupHost
{
public:
    X11PopupHost(X11Connection &connection, X11Workspace &workspace, X11PopupKeyboard &keyboard);

    [[nodiscard]] QFuture<PopupLocation> locate() override;
    [[nodiscard]] bool isScreenLocked() const override;
    [[nodiscard]] Backdrop backdrop() const override;
    [[nodiscard]] Qt::WindowFlags windowFlags() const override;
    void adopt(QWindow *window) override;
    void present(QWindow *) override { }
    void dismiss(QWindow *) override { }
    void conceal(QWindow *window) override;
    void setActiveRegion(QWindow *window, const QRect &region, int cornerRadius) override;
    void takeKeys(QWindow *window, const std::function<bool(const PopupKey &)> &wants) override;
    void releaseKeys(QWindow *window) override;
    bool takeKeyboard(QWindow *window) override;
    void releaseKeyboard(QWindow *window) override;

private:
    [[nodiscard]] QRect visibleFrame(const QRect &nativeScreen) const;

    X11Connection &m_connection;
    X11Workspace &m_workspace;
    X11PopupKeyboard &m_keyboard;
};

}
