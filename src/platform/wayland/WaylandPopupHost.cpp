// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandPopupHost.h"

#include <QGuiApplication>
#include <QScreen>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// A compositor that does not say where the pointer is gets no longer than this.
constexpr auto untilFound = 100ms;

QScreen *screenNamed(const QString &name)
{
    const auto screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        if (screen->name() == name)
            return screen;
    }
    return QGuiApplication::primaryScreen();
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
    , m_keys(m_elsewhere)
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
    connect(&m_keys, &PopupKeys::given, this, [this](QWindow *window) {
        if (const auto shown = m_shown.find(window); shown != m_shown.end())
            shown->second->setKeyboard(LayerSurface::Keyboard::none);
    });
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
    const auto keyboard = window == m_keys.window() ? LayerSurface::Keyboard::exclusive
                                                    : LayerSurface::Keyboard::none;
    m_shown[window] = std::make_unique<LayerSurface>(*m_shell, *window, keyboard);
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
    m_keys.forget(window);
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

void WaylandPopupHost::takeKeys(QWindow *window, const PopupKeys::Wants &wants)
{
    setKeyboard(window, wants, PopupKeys::Kept::untilReleased);
}

void WaylandPopupHost::releaseKeys(QWindow *window)
{
    m_keys.release(window);
}

bool WaylandPopupHost::takeKeyboard(QWindow *window)
{
    const auto all = [](const PopupKey &) { return true; };
    setKeyboard(window, all, PopupKeys::Kept::untilIdle);
    return m_shown.contains(window);
}

void WaylandPopupHost::releaseKeyboard(QWindow *window)
{
    if (m_keys.window() == window)
        m_keys.giveBack();
}

void WaylandPopupHost::setKeyboard(QWindow *window, const PopupKeys::Wants &wants,
                                   PopupKeys::Kept kept)
{
    QTimer::singleShot(0, &m_sessionLock, &SessionLock::start);
    m_keys.take(window, wants, kept);
    if (const auto shown = m_shown.find(window); shown != m_shown.end())
        shown->second->setKeyboard(LayerSurface::Keyboard::exclusive);
}

}
