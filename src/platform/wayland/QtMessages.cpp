// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/QtMessages.h"

#include "base/Log.h"

#include <QString>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

QtMessageHandler handlerBefore = nullptr;

void handle(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (message.contains(u"client buffer integration"))
        return;
    if (message.startsWith(u"The Wayland connection"))
        return Log::print(u"ERROR: The connection to the Wayland compositor was lost."_s);
    handlerBefore(type, context, message);
}

}

void handleQtsWaylandMessages()
{
    handlerBefore = qInstallMessageHandler(handle);
}

}
