// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/PopupHost.h"
#include "platform/freedesktop/SessionLock.h"
#include "platform/wayland/LayerSurface.h"
#include "platform/wayland/PointerCatcher.h"
#include "platform/wayland/PopupKeys.h"

#include <QPromise>
#include <QTimer>

#include <map>
#include <optional>

namespace Tessel {

/// Popups are surfaces of the compositor's highest layer. One that takes keys has the keyboard as a
/// whole, so what it does not want is told as a key that went elsewhere.
class WaylandPopupHost final : public PopupHost
{
    Q_OBJECT

public:
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    /// `elsewhere` hears of what the user does outside of the popup that is shown; `workArea` gives
    /// the part of a screen without panels, where that is known.
    WaylandPopupHost(WaylandConnection &connection,
                     std::function<void(const InputEvent &)> elsewhere,
                     std::function<std::optional<QRect>(const QRect &screen)> workArea);
    ~WaylandPopupHost() override;

    [[nodiscard]] QFuture<PopupLocation> locate() override;
    /// Lockers cover what is shown (ext-session-lock-v1), and no trigger comes meanwhile.
    [[nodiscard]] bool isScreenLocked() const override { return false; }
    [[nodiscard]] Backdrop backdrop() const override { return Backdrop::sharp; }
    [[nodiscard]] Qt::WindowFlags windowFlags() const override;
    void adopt(QWindow *) override { }
    void present(QWindow *window) override;
    void dismiss(QWindow *window) override;
    void conceal(QWindow *window) override;
    void setActiveRegion(QWindow *window, const QRect &region, int cornerRadius) override;
    void takeKeys(QWindow *window, const std::function<bool(const PopupKey &)> &wants) override;
    void releaseKeys(QWindow *window) override;
    bool takeKeyboard(QWindow *window) override;
    void releaseKeyboard(QWindow *window) override;

private:
    void answer(QPoint pointer, const QScreen *screen);
    void leaveQt();
    void openSheets();
    void setKeyboard(QWindow *window, const PopupKeys::Wants &wants, PopupKeys::Kept kept);

    std::function<void(const InputEvent &)> m_elsewhere;
    std::function<std::optional<QRect>(const QRect &)> m_workArea;
    PointerCatcher m_catcher;
    SessionLock m_sessionLock;

    std::optional<QPromise<PopupLocation>> m_question; ///< where the pointer is
    std::shared_ptr<void> m_watch; ///< until that is answered
    QTimer m_patience;

    std::optional<LayerShell> m_shell; ///< when the first popup is shown
    std::map<QWindow *, std::unique_ptr<LayerSurface>> m_shown;
    std::map<QWindow *, WaylandPtr<wl_subsurface>> m_attached; ///< to those
    PopupKeys m_keys;
};

}
