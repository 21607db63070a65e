// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/KWinScripts.h"

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// The bus client that is told, and the names that are others in KWin 5.
const auto prelude = uR"(
const service = "%1";
const isSix = workspace.windowList !== undefined;
const windows = () => isSix ? workspace.windowList() : workspace.clientList();
function tell(method, argument) {
    callDBus(service, "/KWin", "com.tessel.app.KWin", method, argument);
}
)"_s;

/// A popup of ours may have the focus; the window in front is still the one from before.
const auto watchScript = uR"(
const isOurPopup = (window) => window && window.pid === ourProcess && window.skipTaskbar;
const active = isSix ? workspace.activeWindow : workspace.activeClient;
let front = isOurPopup(active) ? null : active;

function describe(window) {
    return { id: String(window.internalId), title: window.caption, processId: window.pid,
             application: String(window.desktopFileName) || String(window.resourceClass),
             isMinimized: window.minimized };
}

function workAreas() {
    const area = (screen) => workspace.clientArea(KWin.MaximizeArea, screen,
                                                  workspace.currentDesktop);
    if (isSix)
        return workspace.screens.map(area);
    return Array.from({ length: workspace.numScreens }, (_, screen) => area(screen));
}

// KWin keeps the script when the program crashes: it would keep the key, too.
function endWithoutProgram(isAlive) {
    if (isAlive)
        return;
    callDBus("org.kde.kglobalaccel", "/kglobalaccel", "org.kde.KGlobalAccel", "unregister",
             "kwin", action);
    callDBus("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting", "unloadScript", "tessel");
}

function tellState(method) {
    const shown = [];
    for (const window of windows()) {
        if (window === front || (window.normalWindow || window.dialog) && !isOurPopup(window))
            shown.push(describe(window));
    }
    tell(method, JSON.stringify({ active: front ? String(front.internalId) : "", windows: shown,
                                  workAreas: workAreas() }));
    callDBus("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner", service,
             endWithoutProgram);
}

function watch(window) {
    window.minimizedChanged.connect(() => tellState("update"));
    if (window.pid === ourProcess)
        window.captionChanged.connect(() => tellState("update"));
}

(isSix ? workspace.windowActivated : workspace.clientActivated).connect((window) => {
    if (isOurPopup(window))
        return;
    front = window;
    tellState("update");
});
(isSix ? workspace.windowAdded : workspace.clientAdded).connect((window) => {
    watch(window);
    if (!isOurPopup(window))
        tellState("update");
});
(isSix ? workspace.windowRemoved : workspace.clientRemoved).connect((window) => {
    if (window === front)
        front = null;
    if (!isOurPopup(window))
        tellState("update");
});
workspace.virtualScreenGeometryChanged.connect(() => tellState("update"));
for (const window of windows())
    watch(window);
registerShortcut(action, "Tessel", "", () => tellState("trigger"));
tellState("update");
)"_s;

const auto requestScript = uR"(
for (const window of windows()) {
    if (String(window.internalId) === "%1")
        %2;
}
tell("finish", "%3");
)"_s;

}

QString KWinScripts::watch(const QString &service, qint64 ourProcess)
{
    const auto names = u"const ourProcess = %1, action = \"%2\";\n"_s;
    return prelude.arg(service) + names.arg(ourProcess).arg(triggerAction) + watchScript;
}

QString KWinScripts::request(const QString &service, const QString &name, const QString &window,
                             const QString &statement)
{
    return prelude.arg(service) + requestScript.arg(window, statement, name);
}

}
