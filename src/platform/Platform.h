// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QFuture>
#include <QMap>
#include <QString>

#include <functional>
#include <memory>

namespace Tessel {

class Appearance;
class CopyRequest;
class EventMonitor;
class Pasteboard;
class PopupHost;
class StatusArea;
class Workspace;

/// What the user can set up so that the desktop offers more.
struct DesktopSetup
{
    QString text; ///< what is missing, in words
    QString button = {}; ///< what sets it up; empty: only the user can
    std::function<QFuture<QString>()> run = {}; ///< what has come of it, in words; may be empty
};

/// The services of the desktop that the program runs on. A backend is made before the application
/// object, so that a missing desktop can be reported, and started after it.
class Platform
{
public:
    virtual ~Platform() = default;

    /// The process-wide platform; set once by main. Borrowed.
    [[nodiscard]] static Platform &current();
    static void setCurrent(Platform *platform);

    /// What the user should know about this desktop, in words; may be empty.
    [[nodiscard]] virtual QString notice() const = 0;

    /// Called with what was found missing only after the start, from the event loop.
    std::function<void(const DesktopSetup &setup)> setupFound = [](const DesktopSetup &) {};

    /// Qt's plugin for windows that it needs; empty: whichever Qt chooses.
    [[nodiscard]] virtual QByteArray qtPlugin() const = 0;

    /// Variables of the environment, by name, that Qt has to find from the application object on.
    [[nodiscard]] virtual QMap<QString, QString> qtVariables() const { return {}; }

    /// Whether ordinary windows get a frame with their title from the desktop, or from Qt.
    [[nodiscard]] virtual bool framesWindows() const { return true; }

    /// Begins to deliver events. Needs the application object.
    virtual void start() = 0;

    [[nodiscard]] virtual EventMonitor &eventMonitor() = 0;
    [[nodiscard]] virtual CopyRequest &copyRequest() = 0;
    [[nodiscard]] virtual Pasteboard &pasteboard() = 0;
    [[nodiscard]] virtual Workspace &workspace() = 0;
    [[nodiscard]] virtual PopupHost &popupHost() = 0;
    [[nodiscard]] virtual Appearance &appearance() = 0;
    [[nodiscard]] virtual StatusArea &statusArea() = 0;
};

/// Chooses the backend by what the session offers. The environment variable TESSEL_PLATFORM demands
/// one: "wayland", "x11", or "none", which only says what is missing. Fails when Qt could not show
/// a window either.
[[nodiscard]] Result<std::unique_ptr<Platform>> makePlatform();

}
