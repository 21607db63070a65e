// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellPopupHost.h"

#include "platform/gnome/ShellBridge.h"

#include <QDBusArgument>
#include <QGuiApplication>
#include <QPromise>
#include <QScreen>

#include <utility>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// A shell that does not answer gets no longer than this.
constexpr auto untilLocated = 100ms;

PopupLocation centerOfScreen()
{
    PopupLocation location;
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        location.pointer = screen->geometry().center();
        location.screen = screen->geometry();
        location.visibleFrame = screen->availableGeometry();
    }
    return location;
}

bool isWholeScreen(const QWindow &window)
{
    return window.screen() && window.geometry() == window.screen()->geometry();
}

}

ShellPopupHost::ShellPopupHost(const ShellBridge &bridge,
                               std::function<void(const InputEvent &)> elsewhere)
    : m_bridge(bridge)
    , m_elsewhere(std::move(elsewhere))
    , m_keys(m_elsewhere)
{
    connect(&m_keys, &PopupKeys::given, this, [this](QWindow *window) {
        if (const auto front = m_bridge.active(); front && m_shown.contains(window))
            m_bridge.send("Activate", { front->handle });
    });
    connect(&bridge, &ShellBridge::attached, this, [this] {
        for (const auto &window : std::as_const(m_windows)) {
            if (window)
                announce(*window);
        }
    });
    connect(&bridge, &ShellBridge::clicked, this,
            [this] { m_elsewhere({ InputEvent::Kind::leftMouseUp }); });
    connect(&m_sessionLock, &SessionLock::locked, this, &PopupHost::sessionLocked);
    connect(&bridge, &ShellBridge::detached, this, &PopupHost::sessionLocked);
}

QFuture<PopupLocation> ShellPopupHost::locate()
{
    struct Question
    {
        QPromise<PopupLocation> promise;
        bool isAnswered = false;

        void answer(const PopupLocation &location)
        {
            if (std::exchange(isAnswered, true))
                return;
            promise.addResult(location);
            promise.finish();
        }
    };
    auto question = std::make_shared<Question>();
    question->promise.start();
    m_bridge.call("Locate", {}, this, [question](const QVariantList &reply) {
        const auto n = qdbus_cast<QList<int>>(reply.value(0));
        if (n.size() == 10)
            question->answer(
                { { n[0], n[1] }, QRect(n[2], n[3], n[4], n[5]), QRect(n[6], n[7], n[8], n[9]) });
    });
    QTimer::singleShot(m_bridge.isAttached() ? untilLocated : 0ms, this,
                       [question] { question->answer(centerOfScreen()); });
    return question->promise.future();
}

/// The last flag says that it is none of the program's ordinary windows; it means nothing to Qt's
/// plugin here.
Qt::WindowFlags ShellPopupHost::windowFlags() const
{
    return Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

void ShellPopupHost::adopt(QWindow *window)
{
    m_windows.removeAll(nullptr);
    m_windows.append(window);
    announce(*window);
}

/// To be known as a popup when it comes, so that the shell does not show its coming.
void ShellPopupHost::announce(const QWindow &window)
{
    m_bridge.send("Present", { window.title(), window.x(), window.y() });
}

void ShellPopupHost::present(QWindow *window)
{
    if (m_shown.contains(window->transientParent())) {
        window->setFlags((window->flags() & ~Qt::WindowType_Mask) | Qt::ToolTip);
        return;
    }
    if (isWholeScreen(*window))
        window->setWindowStates(Qt::WindowFullScreen); // which covers the panel, too
    announce(*window);
    m_shown.insert(window);
    window->installEventFilter(this);
    QTimer::singleShot(0, &m_sessionLock, &SessionLock::start);
}

void ShellPopupHost::dismiss(QWindow *window)
{
    m_shown.erase(window);
    m_keys.forget(window);
    window->removeEventFilter(this);
}

void ShellPopupHost::conceal(QWindow *window)
{
    setActiveRegion(window, QRect(-1, -1, 1, 1), 0);
}

/// Qt takes what is painted for the whole window, and the mask for what takes clicks.
void ShellPopupHost::setActiveRegion(QWindow *window, const QRect &region, int)
{
    window->setMask(region);
}

void ShellPopupHost::takeKeys(QWindow *window, const PopupKeys::Wants &wants)
{
    m_keys.take(window, wants);
}

void ShellPopupHost::releaseKeys(QWindow *window)
{
    m_keys.release(window);
}

bool ShellPopupHost::takeKeyboard(QWindow *window)
{
    const auto all = [](const PopupKey &) { return true; };
    m_keys.take(window, all, PopupKeys::Kept::untilIdle);
    return true;
}

void ShellPopupHost::releaseKeyboard(QWindow *window)
{
    if (m_keys.window() == window)
        m_keys.giveBack();
}

/// What exactly the user does elsewhere cannot be seen: a click there closes the bar, and a key
/// large type.
bool ShellPopupHost::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::FocusOut && m_shown.contains(qobject_cast<QWindow *>(object))) {
        m_elsewhere({ InputEvent::Kind::leftMouseUp });
        m_elsewhere({ InputEvent::Kind::keyDown });
    }
    return false;
}

}
