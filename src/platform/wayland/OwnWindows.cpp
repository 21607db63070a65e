// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/OwnWindows.h"

#include "platform/wayland/WaylandWindows.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

bool isOurs(const WaylandWindow &window)
{
    return window.processId ? window.processId == QCoreApplication::applicationPid()
                            : window.applicationId == QGuiApplication::desktopFileName();
}

}

QWindow *OwnWindows::withId(quint64 id)
{
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->winId() == id)
            return window;
    }
    return nullptr;
}

/// Qt may append the program's name to the title that compositors get.
bool OwnWindows::isSame(const WaylandWindow &listed, const QWindow &window)
{
    const QString title = window.title();
    return isOurs(listed) && (listed.title == title || listed.title.startsWith(title + u" — "_s));
}

void OwnWindows::showAnew(QWindow &window)
{
    if (!window.isExposed())
        return; // it is about to be shown
    window.hide();
    window.show();
}

}
