// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellKeys.h"

#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellInterface.h"

#include <QPromise>

namespace Tessel {

/// When the shell does not answer, the promise goes with the call and is cancelled.
QFuture<void> ShellKeys::whenReady()
{
    auto ready = std::make_shared<QPromise<void>>();
    ready->start();
    m_bridge.call("AwaitModifiers", {}, this, [ready](const QVariantList &) { ready->finish(); });
    return ready->future();
}

void ShellKeys::press(quint32 scanCode, qint64 modifiers)
{
    m_bridge.send("PressKeys", { ShellInterface::keysOf(scanCode, modifiers) });
}

}
