// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/GnomePlatform.h"

#include "platform/freedesktop/FreedesktopAppearance.h"
#include "platform/freedesktop/NotifierArea.h"
#include "platform/gnome/BareDesktop.h"
#include "platform/gnome/ExtensionSetup.h"
#include "platform/gnome/GnomeCopyRequest.h"
#include "platform/gnome/GnomePasteboard.h"
#include "platform/gnome/GnomeSession.h"
#include "platform/gnome/GnomeTrigger.h"
#include "platform/gnome/GnomeWorkspace.h"
#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellKeys.h"
#include "platform/gnome/ShellPasteboard.h"
#include "platform/gnome/ShellPopupHost.h"
#include "platform/wayland/QtMessages.h"
#include "platform/wayland/WaylandCopyRequest.h"
#include "platform/wayland/WaylandEventMonitor.h"
#include "platform/wayland/WaylandPrimarySelection.h"

using namespace Qt::StringLiterals;

namespace Tessel {

/// In order of construction: each uses those above it.
struct GnomeServices
{
    explicit GnomeServices(GnomePlatform::Maker makeX11)
        : bare(setup, std::move(makeX11),
               [this](const InputEvent &event) { eventMonitor.deliver(event); })
    {
    }

    ShellBridge bridge;
    ExtensionSetup setup { bridge };
    BareDesktop bare;
    ShellSelections selections { bridge };
    WaylandSelectionReader reader { selections };
    ShellPasteboard shellPasteboard { selections, reader };
    GnomePasteboard pasteboard { shellPasteboard, bare };
    WaylandPrimarySelection primary { { selections, reader, bridge } };
    ShellKeys keys { bridge };
    GnomeWorkspace workspace { bridge, bare };
    WaylandCopyRequest shellCopyRequest { { keys, primary, shellPasteboard } };
    GnomeCopyRequest copyRequest { shellCopyRequest, bare };
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

Result<std::unique_ptr<Platform>> GnomePlatform::connect(Maker makeX11)
{
    return std::unique_ptr<Platform>(new GnomePlatform(std::move(makeX11)));
}

GnomePlatform::GnomePlatform(Maker makeX11)
    : PlatformWith(std::make_unique<GnomeServices>(std::move(makeX11)))
{
    QObject::connect(&m_services->setup, &ExtensionSetup::changed, &m_services->setup, [this] {
        if (const auto offer = m_services->setup.offer())
            setupFound(*offer);
    });
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
        std::make_unique<GnomeTrigger>(m_services->bridge, m_services->keys, m_services->bare));
    m_services->bridge.start();
    m_services->setup.start();
    m_services->appearance.start();
    m_services->statusArea.start();
}

}
