// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandPopupHost.h"

#include "base/KeyCodes.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// A compositor that does not say where the pointer is gets no longer than this.
constexpr auto untilFound = 100ms;
constexpr auto maxIdle = 60s;

QScreen *screenNamed(const QString &name)
{
    const auto screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        if (screen->name() == name)
            return screen;
    }
    return QGuiApplication::primaryScreen();
}

PopupKey popupKey(const QKeyEvent &event)
{
    return { KeyCodes::virtualFromScanCode(event.nativeScanCode()).value_or(-1), event.text(),
             bool(event.modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) };
}

}

bool WaylandPopupHost::isOffered(const WaylandConnection &connection)
{
    return connection.offers("zwlr_layer_shell_v1") && connection.offers("wp_viewporter");
}

WaylandPopupHost::WaylandPopupHost(
    WaylandConnection &connection, std::function<void(const InputEvent &)> elsewhere,
    std::function<std::optional<QRect>(const QRect &screen)> workArea)
    : m_elsewhere(std::move(elsewhere))
    , m_workArea(std::move(workArea))
    , m_catcher(connection)
{
    connect(&m_catcher, &PointerCatcher::found, this, [this](const QString &output, QPointF place) {
        if (const QScreen *screen = screenNamed(output))
            answer(screen->geometry().topLeft() + place.toPoint(), screen);
    });
    connect(&m_catcher, &PointerCatcher::pressed, this,
            [this] { m_elsewhere({ InputEvent::Kind::leftMouseUp }); });
    connect(&m_catcher, &PointerCatcher::scrolled, this,
            [this] { m_elsewhere({ InputEvent::Kind::scrollWheel }); });
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        const QScreen *screen = QGuiApplication::primaryScreen();
        answer(screen ? screen->geometry().center() : QPoint(), screen);
    });
    m_idle.setSingleShot(true);
    connect(&m_idle, &QTimer::timeout, this, &WaylandPopupHost::giveKeyboardBack);
    connect(&m_sessionLock, &SessionLock::locked, this, &PopupHost::sessionLocked);
}

WaylandPopupHost::~WaylandPopupHost() = default;

QFuture<PopupLocation> WaylandPopupHost::locate()
{
    if (!m_question) {
        m_question.emplace();
        m_question->start();
        m_watch = m_catcher.spread();
        m_patience.start(untilFound);
    }
    return m_question->future();
}

void WaylandPopupHost::answer(QPoint pointer, const QScreen *screen)
{
    if (!m_question)
        return;
    m_patience.stop();
    PopupLocation location;
    location.pointer = pointer;
    location.watch = std::move(m_watch);
    if (screen) {
        location.screen = screen->geometry();
        location.visibleFrame = m_workArea(screen->geometry()).value_or(screen->geometry());
    }
    auto question = std::move(*m_question);
    m_question.reset();
    question.addResult(std::move(location));
    question.finish();
}

Qt::WindowFlags WaylandPopupHost::windowFlags() const
{
    return Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;
}

void WaylandPopupHost::present(QWindow *window)
{
    if (!m_shell) {
        m_shell.emplace();
        connect(qGuiApp, &QCoreApplication::aboutToQuit, this, &WaylandPopupHost::leaveQt);
    }
    window->create();
    if (!m_shell->shell() || m_shown.contains(window) || m_attached.contains(window))
        return; // a surface can have one role only
    if (QWindow *parent = window->transientParent(); parent && m_shown.contains(parent)) {
        // sway 1.7 would show what comes later below.
        m_attached.emplace(window, m_shell->attach(*window, *parent));
        return;
    }
    const auto keyboard
        = window == m_keysWindow ? LayerSurface::Keyboard::exclusive : LayerSurface::Keyboard::none;
    m_shown[window] = std::make_unique<LayerSurface>(*m_shell, *window, keyboard);
    window->installEventFilter(this);
    openSheets();
}

/// Qt's connection goes with the application object, which this outlives.
void WaylandPopupHost::leaveQt()
{
    m_attached.clear();
    m_shown.clear();
    m_shell.reset();
}

/// The surface of a window that is to be shown again must be a new one.
void WaylandPopupHost::dismiss(QWindow *window)
{
    window->removeEventFilter(this);
    if (m_keysWindow == window) {
        m_keysWindow.clear();
        m_keysDown.clear();
    }
    if (m_shown.erase(window) + m_attached.erase(window) == 0)
        return;
    const auto destroy = [window] {
        if (!window->isVisible())
            window->destroy();
    };
    QMetaObject::invokeMethod(window, destroy, Qt::QueuedConnection);
}

void WaylandPopupHost::conceal(QWindow *window)
{
    setActiveRegion(window, QRect(-1, -1, 1, 1), 0);
}

/// Qt takes what is painted for the whole window, and the mask for what takes clicks.
void WaylandPopupHost::setActiveRegion(QWindow *window, const QRect &region, int)
{
    window->setMask(region);
    openSheets();
}

/// Clicks on popups are for them.
void WaylandPopupHost::openSheets()
{
    QRegion popups;
    for (const auto &[window, surface] : m_shown)
        popups += window->mask().translated(window->position());
    const auto screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        m_catcher.leaveOpen(screen->name(), popups.translated(-screen->geometry().topLeft()));
}

void WaylandPopupHost::takeKeys(QWindow *window, const Wants &wants)
{
    setKeyboard(window, wants);
}

/// A key that is down stays with the window: its release would reach the application otherwise.
void WaylandPopupHost::releaseKeys(QWindow *window)
{
    if (m_keysWindow != window)
        return;
    m_wants = {};
    if (m_keysDown.empty())
        giveKeyboardBack();
}

bool WaylandPopupHost::takeKeyboard(QWindow *window)
{
    setKeyboard(window, [](const PopupKey &) { return true; });
    m_idle.start(maxIdle);
    return m_shown.contains(window);
}

void WaylandPopupHost::releaseKeyboard(QWindow *window)
{
    if (m_keysWindow == window)
        giveKeyboardBack();
}

void WaylandPopupHost::setKeyboard(QWindow *window, const Wants &wants)
{
    QTimer::singleShot(0, &m_sessionLock, &SessionLock::start);
    if (m_keysWindow != window)
        giveKeyboardBack();
    m_keysWindow = window;
    m_wants = wants;
    if (const auto shown = m_shown.find(window); shown != m_shown.end())
        shown->second->setKeyboard(LayerSurface::Keyboard::exclusive);
}

void WaylandPopupHost::giveKeyboardBack()
{
    m_idle.stop();
    m_keysDown.clear();
    if (const auto shown = m_shown.find(m_keysWindow); shown != m_shown.end())
        shown->second->setKeyboard(LayerSurface::Keyboard::none);
    m_keysWindow.clear();
}

bool WaylandPopupHost::eventFilter(QObject *window, QEvent *event)
{
    if (window != m_keysWindow)
        return false;
    if (event->type() == QEvent::KeyPress) {
        const auto &press = static_cast<const QKeyEvent &>(*event);
        if (m_idle.isActive())
            m_idle.start(maxIdle);
        m_keysDown.insert(press.nativeScanCode());
        const PopupKey key = popupKey(press);
        if (m_wants && !m_wants(key) && !press.isAutoRepeat()
            && !KeyCodes::isModifierOrLock(press.nativeScanCode()))
            m_elsewhere({ InputEvent::Kind::keyDown, key.keyCode,
                          KeyCodes::modifierBits(press.modifiers()) });
    } else if (event->type() == QEvent::KeyRelease) {
        const auto &release = static_cast<const QKeyEvent &>(*event);
        if (!release.isAutoRepeat())
            m_keysDown.erase(release.nativeScanCode());
        if (!m_wants && m_keysDown.empty())
            giveKeyboardBack();
    }
    return false;
}

}
