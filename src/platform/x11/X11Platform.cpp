// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/x11/X11Platform.h"

#include "platform/freedesktop/QtPlugins.h"
#include "platform/x11/X11Appearance.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11CopyRequest.h"
#include "platform/x11/X11CurrentLayout.h"
#include "platform/x11/X11EventMonitor.h"
#include "platform/x11/X11KeyGrabs.h"
#include "platform/x11/X11Pasteboard.h"
#include "platform/x11/X11PopupHost.h"
#include "platform/x11/X11PopupKeyboard.h"
#include "platform/x11/X11PrimarySelection.h"
#include "platform/x11/X11SelectionReader.h"
#include "platform/x11/X11StatusArea.h"
#include "platform/x11/X11Workspace.h"

using namespace Qt::StringLiterals;

namespace Tessel {

/// In order of construction: each uses those above it.
struct X11Services
{
    X11Services(std::unique_ptr<X11Connection> x, ClipboardHolder holder)
        : connection(std::move(x))
        , pasteboard(*connection, reader, holder)
    {
    }

    std::unique_ptr<X11Connection> connection;
    X11CurrentLayout layout { *connection };
    X11SelectionReader reader { *connection };
    X11Pasteboard pasteboard;
    X11Workspace workspace { *connection };
    X11PrimarySelection primary { *connection };
    X11CopyRequest copyRequest { { *connection, reader, layout, primary, pasteboard } };
    X11KeyGrabs keyGrabs { *connection };
    X11PopupKeyboard keyboard { { *connection, keyGrabs, layout } };
    X11PopupHost popupHost { *connection, workspace, keyboard };
    X11EventMonitor eventMonitor { *connection, keyGrabs,
                                   [this] { return keyboard.holdsKeyboard(); },
                                   [this] { keyboard.releaseHeldKeyboard(); } };
    X11Appearance appearance { *connection };
    X11StatusArea statusArea { *connection };
};

Result<std::unique_ptr<Platform>> X11Platform::connect()
{
    return connectWith(ClipboardHolder::qt);
}

Result<std::unique_ptr<Platform>> X11Platform::connectBeside()
{
    return connectWith(ClipboardHolder::ourselves);
}

Result<std::unique_ptr<Platform>> X11Platform::connectWith(ClipboardHolder holder)
{
    auto connection = X11Connection::open();
    if (!connection)
        return connection.error();
    return std::unique_ptr<Platform>(
        new X11Platform(std::make_unique<X11Services>(*std::move(connection), holder)));
}

X11Platform::X11Platform(std::unique_ptr<X11Services> services)
    : PlatformWith(std::move(services))
{
}

X11Platform::~X11Platform() = default;

QString X11Platform::notice() const
{
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return {};
    const QString limit = u"In this Wayland session, keys pressed in, and text selected in, "
                          "applications that do not use XWayland are not seen."_s;
    return hasQtWaylandPlugin()
        ? limit
        : limit + u" Qt's plugin for Wayland (package qt6-wayland) may change that."_s;
}

void X11Platform::start()
{
    m_services->connection->start();
    m_services->eventMonitor.start();
    m_services->appearance.start();
    m_services->statusArea.start();
}

}
