// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/ScreenChanges.h"

#include <QGuiApplication>
#include <QScreen>

namespace Tessel {

void onScreenChange(QObject *context, const std::function<void()> &changed)
{
    const auto watch = [context, changed](const QScreen *screen) {
        QObject::connect(screen, &QScreen::geometryChanged, context, changed);
        QObject::connect(screen, &QScreen::logicalDotsPerInchChanged, context, changed);
    };
    const auto screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        watch(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, context,
                     [watch, changed](const QScreen *screen) {
                         watch(screen);
                         changed();
                     });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, context, changed);
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, context, changed);
}

}
