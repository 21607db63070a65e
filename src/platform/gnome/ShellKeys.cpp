// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellKeys.h"

#include "platform/gnome/ShellBridge.h"
#include "platform/gnome/ShellInterface.h"

#include <QTimer>

using namespace std::chrono_literals;

namespace Tessel {

namespace {

constexpr auto untilNextLook = 10ms;
constexpr auto maxWait = 1s;

}

QFuture<void> ShellKeys::whenReady()
{
    auto ready = std::make_shared<QPromise<void>>();
    ready->start();
    look(ready, QDeadlineTimer(maxWait));
    return ready->future();
}

/// When the shell does not answer, the promise goes with the call and is cancelled.
void ShellKeys::look(const std::shared_ptr<QPromise<void>> &ready, QDeadlineTimer deadline)
{
    m_bridge.call("HoldsModifiers", {}, this, [=, this](const QVariantList &reply) {
        if (!reply.value(0).toBool() || deadline.hasExpired())
            ready->finish();
        else
            QTimer::singleShot(untilNextLook, this, [=, this] { look(ready, deadline); });
    });
}

void ShellKeys::press(quint32 scanCode, qint64 modifiers)
{
    m_bridge.send("PressKeys", { ShellInterface::keysOf(scanCode, modifiers) });
}

}
