// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/SessionLock.h"
#include "platform/wayland/PopupKeys.h"

#include <set>

namespace Tessel {

class ShellBridge;

/// Popups are ordinary windows, which the shell's extension puts in their place and above the
/// others; tooltips are popups of those (xdg_popup). The window that is shown has the keyboard, so
/// that it loses that when the user does something elsewhere. Without the extension the compositor
/// places them.
class ShellPopupHost final : public PopupHost
{
    Q_OBJECT

public:
    /// `elsewhere` hears of what the user does outside of the popup that is shown.
    ShellPopupHost(const ShellBridge &bridge, std::function<void(const InputEvent &)> elsewhere);

    [[nodiscard]] QFuture<PopupLocation> locate() override;
    [[nodiscard]] bool isScreenLocked() const override { return false; } ///< the shell covers all
    [[nodiscard]] Backdrop backdrop() const override { return Backdrop::sharp; }
    [[nodiscard]] Qt::WindowFlags windowFlags() const override;
    void adopt(QWindow *window) override;
    void present(QWindow *window) override;
    void dismiss(QWindow *window) override;
    void conceal(QWindow *window) override;
    void setActiveRegion(QWindow *window, const QRect &region, int cornerRadius) override;
    void takeKeys(QWindow *window, const std::function<bool(const PopupKey &)> &wants) override;
    void releaseKeys(QWindow *window) override;
    bool takeKeyboard(QWindow *window) override;
    void releaseKeyboard(QWindow *window) override;

    [[nodiscard]] bool eventFilter(QObject *window, QEvent *event) override;

private:
    void announce(const QWindow &window);

    const ShellBridge &m_bridge;
    std::function<void(const InputEvent &)> m_elsewhere;
    PopupKeys m_keys;
    SessionLock m_sessionLock;
    QList<QPointer<QWindow>> m_windows;
    std::set<QWindow *> m_shown; ///< those that have the focus while they are
};

}
