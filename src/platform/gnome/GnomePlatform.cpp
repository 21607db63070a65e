// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomePlatform.h"

#include "platform/freedesktop/FreedesktopAppearance.h"
#include "platform/freedesktop/NotifierArea.h"
#include "platform/gnome/GnomeSession.h"
#include "platform/gnome/GnomeWorkspace.h"
#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellKeys.h"
#include "platform/gnome/ShellPasteboard.h"
#include "platform/gnome/ShellPopupHost.h"
#include "platform/gnome/ShellTrigger.h"
#include "platform/wayland/QtMessages.h"
#include "platform/wayland/WaylandCopyRequest.h"
#include "platform/wayland/WaylandEventMonitor.h"
#include "platform/wayland/WaylandPrimarySelection.h"


using namespace Qt::StringLiterals;

namespace Tessel {

/// In order of construction: each uses those above it.
struct GnomePlatform::Services
{
    ShellBridge bridge;
    ShellSelections selections { bridge };
    WaylandSelectionReader reader { selections };
    ShellPasteboard pasteboard { selections, reader };
    WaylandPrimarySelection primary { { selections, reader, bridge } };
    ShellKeys keys { bridge };
    GnomeWorkspace workspace { bridge };
    WaylandCopyRequest copyRequest { { keys, primary, pasteboard } };
    WaylandEventMonitor eventMonitor;
    ShellPopupHost popupHost { bridge,
                               [this](const InputEvent &event) { eventMonitor.deliver(event); } };
    FreedesktopAppearance appearance;
    NotifierArea statusArea;
};

bool GnomePlatform::isOffered()
{
    return GnomeSession::isOffered();
}

Result<std::unique_ptr<Platform>> GnomePlatform::connect()
{
    return std::unique_ptr<Platform>(new GnomePlatform);
}

GnomePlatform::GnomePlatform()
    : m_services(std::make_unique<Services>())
{
}

GnomePlatform::~GnomePlatform() = default;

QString GnomePlatform::notice() const
{
    return {};
}

/// Windows are where they were put, as the extension puts them there. What Qt loads for graphics
/// cards would take 50 MB.
QMap<QString, QString> GnomePlatform::qtVariables() const
{
    return { { u"QT_WAYLAND_DISABLE_FIXED_POSITIONS"_s, u"1"_s },
             { u"QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"_s, u"none"_s } };
}

void GnomePlatform::start()
{
    handleQtsWaylandMessages();
    m_services->eventMonitor.start(
        std::make_unique<ShellTrigger>(m_services->bridge, m_services->keys));
    m_services->bridge.start();
    m_services->appearance.start();
    m_services->statusArea.start();
}

EventMonitor &GnomePlatform::eventMonitor()
{
    return m_services->eventMonitor;
}

CopyRequest &GnomePlatform::copyRequest()
{
    return m_services->copyRequest;
}

Pasteboard &GnomePlatform::pasteboard()
{
    return m_services->pasteboard;
}

Workspace &GnomePlatform::workspace()
{
    return m_services->workspace;
}

PopupHost &GnomePlatform::popupHost()
{
    return m_services->popupHost;
}

Appearance &GnomePlatform::appearance()
{
    return m_services->appearance;
}

StatusArea &GnomePlatform::statusArea()
{
    return m_services->statusArea;
}

}
