// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <memory>

namespace Tessel {

class Appearance;
class CopyRequest;
class EventMonitor;
class Pasteboard;
class PopupHost;
class StatusArea;
class Workspace;

/// The services of the desktop that the program runs on. A backend is made before the application
/// object, so that a missing desktop can be reported, and started after it.
class Platform
{
public:
    virtual ~Platform() = default;

    /// The process-wide platform; set once by main. Borrowed.
    [[nodiscard]] static Platform &current();
    static void setCurrent(Platform *platform);

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

struct PlatformResult
{
    std::unique_ptr<Platform> platform; ///< null when no backend suits the session
    QString error; ///< why, when there is none
    QString notice; ///< what the user should know about the backend; may be empty
};

/// Chooses the backend by what the session offers, and prepares the environment that Qt reads.
[[nodiscard]] PlatformResult makePlatform();

}
