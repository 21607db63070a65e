// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandPlatform.h"

#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "platform/freedesktop/FreedesktopAppearance.h"
#include "platform/freedesktop/NotifierArea.h"
#include "platform/freedesktop/QtPlugins.h"
#include "platform/wayland/ForeignToplevels.h"
#include "platform/wayland/KWinBridge.h"
#include "platform/wayland/KWinFakeKeys.h"
#include "platform/wayland/QtMessages.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandCopyRequest.h"
#include "platform/wayland/WaylandDataControl.h"
#include "platform/wayland/WaylandEventMonitor.h"
#include "platform/wayland/WaylandKeyboard.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/wayland/WaylandPopupHost.h"
#include "platform/wayland/WaylandPrimarySelection.h"
#include "platform/wayland/WaylandSelectionReader.h"
#include "platform/wayland/WaylandTrigger.h"
#include "platform/wayland/WaylandTriggerChoice.h"
#include "platform/wayland/WaylandWorkspace.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace Tessel {

/// In order of construction: each uses those above it.
struct WaylandServices
{
    explicit WaylandServices(std::unique_ptr<WaylandConnection> wayland)
        : connection(std::move(wayland))
    {
    }

    std::unique_ptr<WaylandConnection> connection;
    WaylandDataControl dataControl { *connection };
    WaylandSelectionReader reader { dataControl };
    WaylandPasteboard pasteboard { dataControl, reader };
    const bool isKWin = KWinBridge::isOffered(*connection);
    KWinBridge kwin;
    ForeignToplevels toplevels { *connection };
    WaylandWindows &windows = isKWin ? static_cast<WaylandWindows &>(kwin) : toplevels;
    std::unique_ptr<KWinFakeKeys> kwinKeys = KWinFakeKeys::isOffered(*connection)
        ? std::make_unique<KWinFakeKeys>(*connection)
        : nullptr;
    WaylandKeyboard keyboard { *connection };
    WaylandKeys &keys = kwinKeys ? static_cast<WaylandKeys &>(*kwinKeys) : keyboard;
    WaylandPrimarySelection primary { { dataControl, reader, windows } };
    WaylandWorkspace workspace { windows, {} };
    WaylandCopyRequest copyRequest { { keys, primary, pasteboard } };
    WaylandEventMonitor eventMonitor;
    WaylandPopupHost popupHost { *connection,
                                 [this](const InputEvent &event) { eventMonitor.deliver(event); },
                                 [this](const QRect &screen) { return kwin.workArea(screen); } };
    FreedesktopAppearance appearance;
    NotifierArea statusArea;
};

bool WaylandPlatform::isOffered()
{
    if (qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || !hasQtWaylandPlugin())
        return false;
    const auto connection = WaylandConnection::open();
    return connection && WaylandDataControl::isOffered(**connection)
        && WaylandPopupHost::isOffered(**connection);
}

Result<std::unique_ptr<Platform>> WaylandPlatform::connect()
{
    auto connection = WaylandConnection::open();
    if (!connection)
        return connection.error();
    return std::unique_ptr<Platform>(
        new WaylandPlatform(std::make_unique<WaylandServices>(*std::move(connection))));
}

WaylandPlatform::WaylandPlatform(std::unique_ptr<WaylandServices> services)
    : PlatformWith(std::move(services))
{
}

WaylandPlatform::~WaylandPlatform() = default;

QString WaylandPlatform::notice() const
{
    if (m_services->kwinKeys || WaylandKeyboard::isOffered(*m_services->connection))
        return {};
    if (m_services->isKWin)
        return localized(
            u"KWin lets Tessel press no keys, as only programs with a desktop entry may "
            "(com.tessel.app.kwin.tessel): text is only seen where marking it with the mouse is "
            "enough."_s);
    return localized(u"This compositor lets no program press keys: text is only seen where marking "
                     "it with the mouse is enough."_s);
}

/// Popups are windows that Qt leaves without a role. All windows are painted in software: what Qt
/// loads for graphics cards would take 50 MB.
QMap<QString, QString> WaylandPlatform::qtVariables() const
{
    return { { u"QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT"_s, u"1"_s },
             { u"QT_WAYLAND_CLIENT_BUFFER_INTEGRATION"_s, u"none"_s } };
}

void WaylandPlatform::start()
{
    handleQtsWaylandMessages();
    QObject::connect(m_services->connection.get(), &WaylandConnection::lost, qApp, [] {
        Log::print(u"ERROR: The connection to the Wayland compositor was lost."_s);
        QCoreApplication::exit(1);
    });
    m_services->connection->start();
    KWinBridge *kwin = m_services->isKWin ? &m_services->kwin : nullptr;
    m_services->eventMonitor.start(makeWaylandTrigger(
        { *m_services->connection, m_services->keys, kwin, m_services->kwinKeys.get() }));
    if (kwin)
        kwin->start();
    m_services->appearance.start();
    m_services->statusArea.start();
}

}
