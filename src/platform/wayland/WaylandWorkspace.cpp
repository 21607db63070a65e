// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/WaylandWorkspace.h"

#include "platform/wayland/WaylandWindows.h"

#include <QGuiApplication>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

QWindow *ownWindow(quint64 id)
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->winId() == id)
            return window;
    }
    return nullptr;
}

bool isOurs(const WaylandWindow &window)
{
    return window.processId ? window.processId == QCoreApplication::applicationPid()
                            : window.applicationId == QGuiApplication::desktopFileName();
}

/// Qt appends the program's name to the title that compositors get.
bool hasTitle(const WaylandWindow &window, const QString &title)
{
    return window.title == title || window.title.startsWith(title + u" — "_s);
}

}

WaylandWorkspace::WaylandWorkspace(WaylandWindows &windows, QStringList missingAccess)
    : m_windows(windows)
    , m_missingAccess(std::move(missingAccess))
{
}

std::optional<FrontApplication> WaylandWorkspace::frontmostApplication()
{
    const auto window = m_windows.active();
    if (!window)
        return {};
    FrontApplication application = applicationNamed(namesOf(*window));
    application.window = window->handle;
    return application;
}

void WaylandWorkspace::bringToFront(quint64 id)
{
    QWindow *window = ownWindow(id);
    if (!window)
        return;
    if (const quint64 handle = handleOf(*window)) {
        m_windows.activate(handle);
    } else if (window->isExposed()) {
        // A window that is shown anew gets the keyboard, one that asks for it does not.
        window->hide();
        window->show();
    }
}

/// 0 when the compositor does not list it.
quint64 WaylandWorkspace::handleOf(const QWindow &window) const
{
    for (const WaylandWindow &candidate : m_windows.all()) {
        if (isOurs(candidate) && hasTitle(candidate, window.title()))
            return candidate.handle;
    }
    return 0;
}

}
