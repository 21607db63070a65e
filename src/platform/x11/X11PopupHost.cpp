// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11PopupHost.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11PopupKeyboard.h"
#include "platform/x11/X11ScreenLocker.h"
#include "platform/x11/X11WorkArea.h"
#include "platform/x11/X11Workspace.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <cstring>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>

namespace Tessel {

namespace {

/// Qt keeps the origin of a screen in device pixels and divides its size by the scale factor.
QRect nativeGeometry(const QScreen *screen)
{
    const QRect logical = screen->geometry();
    return { logical.topLeft(), (QSizeF(logical.size()) * screen->devicePixelRatio()).toSize() };
}

QRect logicalGeometry(const QRect &native, const QScreen *screen)
{
    const QPoint origin = screen->geometry().topLeft();
    const double scale = screen->devicePixelRatio();
    return QRectF(QPointF(native.topLeft() - origin) / scale + origin,
                  QSizeF(native.size()) / scale)
        .toRect();
}

/// Geometry of a window in device pixels of the root window; null when it has gone.
QRect rootGeometry(const X11Connection &connection, quint32 window)
{
    xcb_connection_t *xcb = connection.xcb();
    const auto sizeCookie = xcb_get_geometry(xcb, window);
    const auto placeCookie = xcb_translate_coordinates(xcb, window, connection.root(), 0, 0);
    const XcbPtr<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(xcb, sizeCookie, nullptr));
    const XcbPtr<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(xcb, placeCookie, nullptr));
    if (!size || !place)
        return {};
    return { place->dst_x, place->dst_y, size->width, size->height };
}

QScreen *screenOf(const QRect &window)
{
    QScreen *best = QGuiApplication::primaryScreen();
    qint64 bestArea = 0;
    const auto screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        const QRect common = nativeGeometry(screen).intersected(window);
        const qint64 area = qint64(common.width()) * common.height();
        if (area > bestArea) {
            best = screen;
            bestArea = area;
        }
    }
    return best;
}

/// All windows' struts; the requests go out together, so that this is one round trip.
QList<X11Strut> struts(const X11Connection &connection)
{
    xcb_connection_t *xcb = connection.xcb();
    const quint32 strutAtom = connection.atom("_NET_WM_STRUT_PARTIAL");
    QList<xcb_get_property_cookie_t> cookies;
    for (const quint32 window : connection.items(connection.root(), "_NET_CLIENT_LIST"))
        cookies += xcb_get_property(xcb, 0, window, strutAtom, XCB_ATOM_CARDINAL, 0, 12);
    QList<X11Strut> result;
    for (const auto cookie : cookies) {
        const XcbPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(xcb, cookie, nullptr));
        std::array<quint32, 12> items {};
        if (reply && xcb_get_property_value_length(reply.get()) == int(sizeof items)) {
            std::memcpy(items.data(), xcb_get_property_value(reply.get()), sizeof items);
            result += x11Strut(items);
        }
    }
    return result;
}

/// On a window: the region that is to be blurred behind it, as KWindowSystem has it. On the root
/// window: the sign that KWin's blur is on.
constexpr auto blurProperty = "_KDE_NET_WM_BLUR_BEHIND_REGION";

QRect scaled(const QRect &rect, double scale)
{
    return QRectF(rect.x() * scale, rect.y() * scale, rect.width() * scale, rect.height() * scale)
        .toRect();
}

}

X11PopupHost::X11PopupHost(X11Connection &connection, X11Workspace &workspace,
                           X11PopupKeyboard &keyboard)
    : m_connection(connection)
    , m_workspace(workspace)
    , m_keyboard(keyboard)
{
    connect(&keyboard, &X11PopupKeyboard::sessionLocked, this, &PopupHost::sessionLocked);
}

QFuture<PopupLocation> X11PopupHost::locate()
{
    PopupLocation location;
    location.pointer = QCursor::pos();
    const quint32 active = m_workspace.activeWindow();
    const QScreen *screen
        = active ? screenOf(rootGeometry(m_connection, active)) : QGuiApplication::primaryScreen();
    if (screen) {
        location.screen = screen->geometry();
        location.visibleFrame = logicalGeometry(visibleFrame(nativeGeometry(screen)), screen);
    }
    return QtFuture::makeReadyFuture(location);
}

QRect X11PopupHost::visibleFrame(const QRect &nativeScreen) const
{
    QRect desktop;
    const auto screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        desktop |= nativeGeometry(screen);
    return x11WorkArea(nativeScreen,
                       QSize(desktop.x() + desktop.width(), desktop.y() + desktop.height()),
                       struts(m_connection));
}

bool X11PopupHost::isScreenLocked() const
{
    if (m_keyboard.holdsKeyboard())
        return false;
    QList<QRect> areas;
    const auto screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        areas += nativeGeometry(screen);
    return isCoveredByLocker(m_connection, areas);
}

Backdrop X11PopupHost::backdrop() const
{
    // The compositing manager of a screen owns this selection (EWMH, section "Compositing").
    const QByteArray name = "_NET_WM_CM_S" + QByteArray::number(m_connection.screenNumber());
    if (m_connection.selectionOwner(m_connection.atom(name.constData())) == XCB_NONE)
        return Backdrop::none;
    const bool blurs
        = !m_connection.property(m_connection.root(), m_connection.atom(blurProperty), 4).isEmpty();
    return blurs ? Backdrop::blurred : Backdrop::sharp;
}

Qt::WindowFlags X11PopupHost::windowFlags() const
{
    return Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint
        | Qt::NoDropShadowWindowHint;
}

void X11PopupHost::adopt(QWindow *window)
{
    m_keyboard.prepare();
    const auto id = static_cast<quint32>(window->winId());
    if (!window->flags().testFlag(Qt::BypassWindowManagerHint)) {
        // What the window manager does not leave alone is to be on all desktops (EWMH). xfwm4 4.18
        // takes the number for that of the last one; others ignore the state.
        const quint32 allDesktops = 0xFFFFFFFF;
        xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, id,
                            m_connection.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1,
                            &allDesktops);
        const quint32 sticky = m_connection.atom("_NET_WM_STATE_STICKY");
        xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_APPEND, id,
                            m_connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32, 1, &sticky);
    }
    // Compositors that add shadows of their own to any window are told that ours has one.
    const quint32 none = 0;
    xcb_change_property(m_connection.xcb(), XCB_PROP_MODE_REPLACE, id,
                        m_connection.atom("_COMPTON_SHADOW"), XCB_ATOM_CARDINAL, 32, 1, &none);
    // Before Qt, on its connection, reads the state, adds its own and shows the window.
    const XcbPtr<xcb_get_input_focus_reply_t> done(xcb_get_input_focus_reply(
        m_connection.xcb(), xcb_get_input_focus(m_connection.xcb()), nullptr));
}

/// The server takes the keyboard from a window that is unmapped.
void X11PopupHost::conceal(QWindow *window)
{
    window->setPosition(-2 * window->width(), -2 * window->height());
}

void X11PopupHost::setActiveRegion(QWindow *window, const QRect &region, int cornerRadius)
{
    const double scale = window->devicePixelRatio();
    const QRect native = scaled(region, scale);
    const auto id = static_cast<quint32>(window->winId());
    xcb_connection_t *xcb = m_connection.xcb();

    if (m_connection.xfixes().present) {
        const xcb_rectangle_t clicks { qint16(native.x()), qint16(native.y()),
                                       quint16(native.width()), quint16(native.height()) };
        const quint32 area = xcb_generate_id(xcb);
        xcb_xfixes_create_region(xcb, area, 1, &clicks);
        xcb_xfixes_set_window_shape_region(xcb, id, 2 /* ShapeInput */, 0, 0, area);
        xcb_xfixes_destroy_region(xcb, area);
    }
    // The blur has square corners: keep it inside the rounded ones.
    const int inset = qRound(cornerRadius * scale * 0.3);
    const quint32 blurred[]
        = { quint32(native.x() + inset), quint32(native.y() + inset),
            quint32(native.width() - 2 * inset), quint32(native.height() - 2 * inset) };
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, id, m_connection.atom(blurProperty),
                        XCB_ATOM_CARDINAL, 32, 4, blurred);
    xcb_flush(xcb);
}

void X11PopupHost::takeKeys(QWindow *window, const std::function<bool(const PopupKey &)> &wants)
{
    m_keyboard.takeKeys(window, wants);
}

void X11PopupHost::releaseKeys(QWindow *window)
{
    m_keyboard.releaseKeys(window);
}

bool X11PopupHost::takeKeyboard(QWindow *window)
{
    return m_keyboard.takeKeyboard(window);
}

void X11PopupHost::releaseKeyboard(QWindow *window)
{
    m_keyboard.releaseKeyboard(window);
}

}
