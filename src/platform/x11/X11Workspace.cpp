// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Workspace.h"

#include "base/LocalizationManager.h"
#include "platform/x11/X11Connection.h"

#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace Tessel {

X11Workspace::X11Workspace(X11Connection &connection)
    : m_connection(connection)
    , m_windowManager(connection)
{
}

quint32 X11Workspace::activeWindow() const
{
    const quint32 active = m_windowManager.activeWindow();
    return active ? active : focusedClientWindow();
}

/// Without a window manager: up from the focused window to the one that has a class.
quint32 X11Workspace::focusedClientWindow() const
{
    xcb_connection_t *xcb = m_connection.xcb();
    const XcbPtr<xcb_get_input_focus_reply_t> focus(
        xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
    quint32 window = focus ? focus->focus : quint32(XCB_NONE);
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != m_connection.root()) {
        if (!m_connection.property(window, XCB_ATOM_WM_CLASS).isEmpty())
            return window;
        const XcbPtr<xcb_query_tree_reply_t> tree(
            xcb_query_tree_reply(xcb, xcb_query_tree(xcb, window), nullptr));
        window = tree ? tree->parent : quint32(XCB_NONE);
    }
    return 0;
}

std::optional<FrontApplication> X11Workspace::frontmostApplication()
{
    const quint32 window = activeWindow();
    return window ? std::optional(applicationOf(window)) : std::nullopt;
}

FrontApplication X11Workspace::applicationOf(quint32 window)
{
    // WM_CLASS: instance and class, each ended by a zero byte (ICCCM, section 4.1.2.5).
    const QList<QByteArray> names = m_connection.property(window, XCB_ATOM_WM_CLASS).split('\0');
    FrontApplication application = applicationNamed({
        QString::fromUtf8(m_connection.property(window, m_connection.atom("_GTK_APPLICATION_ID"))),
        QString::fromLatin1(names.value(1)),
        QString::fromLatin1(names.value(0)),
    });
    application.window = window;
    return application;
}

void X11Workspace::bringToFront(quint64 window)
{
    const auto id = static_cast<quint32>(window);
    m_windowManager.moveToCurrentDesktop(id);
    m_windowManager.activate(id);
}

QStringList X11Workspace::missingAccess() const
{
    QStringList missing;
    if (!m_connection.xtest().present)
        missing += localized(u"the X server's XTEST extension, to copy the selection"_s);
    if (!m_connection.xinput().present)
        missing
            += localized(u"the X server's XInput extension 2.1 or later, to see the trigger key"_s);
    if (!m_connection.xkb().present)
        missing += localized(u"the X server's XKB extension, to know the keyboard layout"_s);
    if (!m_connection.xfixes().present)
        missing += localized(u"the X server's XFIXES extension, to see the clipboard change"_s);
    return missing;
}

}
