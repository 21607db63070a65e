// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/none/NonePlatform.h"

#include "base/LocalizationManager.h"
#include "platform/CopyRequest.h"
#include "platform/EventMonitor.h"
#include "platform/Pasteboard.h"
#include "platform/PopupHost.h"
#include "platform/freedesktop/FreedesktopAppearance.h"
#include "platform/freedesktop/FreedesktopWorkspace.h"
#include "platform/freedesktop/NotifierArea.h"
#include "platform/freedesktop/QtPlugins.h"

#include <QClipboard>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

class NoEventMonitor final : public EventMonitor
{
public:
    [[nodiscard]] std::unique_ptr<Subscription> addGlobalMonitor(InputEvent::Kinds,
                                                                 Handler) override
    {
        return nullptr;
    }
    void setTrigger(const KeyChord &) override { }
    [[nodiscard]] TriggerRoute triggerRoute() const override { return TriggerRoute::unbound; }
    void passTriggerOn() override { }
};

class NoCopyRequest final : public CopyRequest
{
public:
    void prepare() override { }
    [[nodiscard]] QFuture<void> whenReady() override { return QtFuture::makeReadyFuture(); }
    [[nodiscard]] QFuture<void> copySelection(const FrontApplication &) override { return {}; }
    [[nodiscard]] QFuture<bool> copyMarkedText(const FrontApplication &, Marked) override
    {
        return QtFuture::makeReadyFuture(false);
    }
};

/// Takes texts of our own only.
class OwnPasteboard final : public Pasteboard
{
public:
    [[nodiscard]] qint64 changeCount() const override { return 0; }
    [[nodiscard]] QFuture<std::optional<QString>> string(std::chrono::milliseconds) override
    {
        return QtFuture::makeReadyFuture(std::optional<QString>());
    }
    void setString(const QString &text) override { QGuiApplication::clipboard()->setText(text); }
};

class OwnWorkspace final : public FreedesktopWorkspace
{
public:
    [[nodiscard]] std::optional<FrontApplication> frontmostApplication() override { return {}; }
    void bringToFront(quint64 id) override
    {
        for (QWindow *window : QGuiApplication::topLevelWindows()) {
            if (window->isVisible() && window->winId() == id)
                window->requestActivate();
        }
    }
    [[nodiscard]] QStringList missingAccess() const override
    {
        return { localized(
            u"a window system that Tessel supports (X11; in a Wayland session, XWayland), "
            "to see keys and selected text"_s) };
    }
};

/// Ordinary windows: whoever shows them places them.
class PlainPopups final : public PopupHost
{
public:
    [[nodiscard]] QFuture<PopupLocation> locate() override
    {
        PopupLocation location;
        location.pointer = QCursor::pos();
        if (const QScreen *screen = QGuiApplication::primaryScreen()) {
            location.screen = screen->geometry();
            location.visibleFrame = screen->availableGeometry();
        }
        return QtFuture::makeReadyFuture(location);
    }
    [[nodiscard]] Qt::WindowFlags windowFlags() const override
    {
        return Qt::ToolTip | Qt::FramelessWindowHint;
    }
    [[nodiscard]] bool isScreenLocked() const override { return false; }
    [[nodiscard]] Backdrop backdrop() const override { return Backdrop::none; }
    void adopt(QWindow *) override { }
    void present(QWindow *) override { }
    void dismiss(QWindow *) override { }
    void conceal(QWindow *) override { }
    void setActiveRegion(QWindow *, const QRect &, int) override { }
    void takeKeys(QWindow *, const std::function<bool(const PopupKey &)> &) override { }
    void releaseKeys(QWindow *) override { }
    bool takeKeyboard(QWindow *) override { return false; }
    void releaseKeyboard(QWindow *) override { }
};

bool isOnlyWayland()
{
    return qEnvironmentVariableIsEmpty("DISPLAY")
        && !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

}

struct NoneServices
{
    NoEventMonitor eventMonitor;
    NoCopyRequest copyRequest;
    OwnPasteboard pasteboard;
    OwnWorkspace workspace;
    PlainPopups popupHost;
    FreedesktopAppearance appearance;
    NotifierArea statusArea;
};

bool NonePlatform::isOffered()
{
    return qEnvironmentVariableIsSet("QT_QPA_PLATFORM") || !qEnvironmentVariableIsEmpty("DISPLAY")
        || (isOnlyWayland() && hasQtWaylandPlugin());
}

Result<std::unique_ptr<Platform>> NonePlatform::connect()
{
    return std::unique_ptr<Platform>(new NonePlatform(std::make_unique<NoneServices>()));
}

NonePlatform::NonePlatform(std::unique_ptr<NoneServices> services)
    : PlatformWith(std::move(services))
{
}

NonePlatform::~NonePlatform() = default;

QByteArray NonePlatform::qtPlugin() const
{
    const bool isChosen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    return isOnlyWayland() && !isChosen ? "wayland" : "";
}

void NonePlatform::start()
{
    m_services->appearance.start();
    m_services->statusArea.start();
}

}
