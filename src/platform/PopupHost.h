// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QFuture>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

class QWindow;

namespace Tessel {

/// Where a popup can go. Logical pixels of Qt's coordinates, y down.
struct PopupLocation
{
    QPoint pointer;
    std::optional<QRect> screen; ///< the main screen: the active window's, else the primary one
    std::optional<QRect> visibleFrame; ///< the same without panels and docks

    /// To be kept as long as the popup is shown: where clicks and scrolling elsewhere are seen only
    /// by what lies above all windows, it does so while this lives.
    std::shared_ptr<void> watch = {};
};

/// What shows through translucent pixels of a popup: nothing, as they would be black, what is
/// behind it, or that blurred, in the popup's active region.
enum class Backdrop { none, sharp, blurred };

/// A key that could go to a popup.
struct PopupKey
{
    qint64 keyCode = -1; ///< virtual key code (KeyCodes.h), -1 when it has none
    QString characters; ///< as the layout gives them
    bool isCommand = false; ///< Ctrl or Super is held
};

/// Puts windows of our own above everything without taking the application in front out of focus.
/// A window is given by its QWindow, which must exist (be created) and outlive its time on screen.
class PopupHost : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// May take a moment on desktops where the pointer is not known at any time.
    [[nodiscard]] virtual QFuture<PopupLocation> locate() = 0;

    /// Whether a screen locker covers everything: nothing is shown above it.
    [[nodiscard]] virtual bool isScreenLocked() const = 0;

    [[nodiscard]] virtual Backdrop backdrop() const = 0;
    [[nodiscard]] bool isCompositing() const { return backdrop() != Backdrop::none; }

    /// The flags that Qt has to make a popup window with.
    [[nodiscard]] virtual Qt::WindowFlags windowFlags() const = 0;

    /// Completes a new popup window, made with these flags: above full-screen windows, on
    /// every desktop, with no shadow but its own.
    virtual void adopt(QWindow *window) = 0;

    /// To be called right before such a window is shown where it stands, and before it is hidden.
    /// It lies above its transient parent, if that is shown.
    virtual void present(QWindow *window) = 0;
    virtual void dismiss(QWindow *window) = 0;

    /// Lets clicks through a shown window, which is to paint nothing any more; its keys still come.
    virtual void conceal(QWindow *window) = 0;

    /// Only this part (logical pixels, in the window) takes clicks, and is blurred behind where the
    /// compositor can; the rest lets clicks through.
    virtual void setActiveRegion(QWindow *window, const QRect &region, int cornerRadius) = 0;

    /// Sends the keys that it wants to the window, which is shown or about to be, as key events,
    /// until they are released. All others go to the application in front as ever, where the
    /// desktop can tell them apart.
    virtual void takeKeys(QWindow *window, const std::function<bool(const PopupKey &)> &wants) = 0;
    virtual void releaseKeys(QWindow *window) = 0;

    /// Sends all keys to the shown window; the application in front stays active. They go back when
    /// it is hidden or released, and also when something else needs them: another window is
    /// activated, a mouse button is pressed elsewhere, the session is about to be locked, or no key
    /// was pressed for a minute. False when the desktop refuses.
    virtual bool takeKeyboard(QWindow *window) = 0;
    virtual void releaseKeyboard(QWindow *window) = 0;

Q_SIGNALS:
    /// The screen is being locked or saved: what popups show is not for everybody.
    void sessionLocked();
};

}
