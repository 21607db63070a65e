// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellCalls.h"

#include "platform/DesktopBus.h"
#include "platform/gnome/ShellInterface.h"
#include "platform/gnome/ShellToken.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace Tessel {

namespace {

constexpr int patience = 2000; ///< milliseconds

}

bool ShellCalls::areAnswered()
{
    const uint clipboard = ShellInterface::numberOf(WaylandSelections::Selection::clipboard);
    return DesktopBus::isReady() && call("Formats", { clipboard });
}

std::optional<QVariantList> ShellCalls::call(const char *method, const QVariantList &arguments)
{
    const BusObject shell = ShellInterface::object();
    auto request = QDBusMessage::createMethodCall(shell.service, shell.path, shell.interface,
                                                  QString::fromLatin1(method));
    request.setArguments(QVariantList { ShellToken::published() } + arguments);
    request.setAutoStartService(false);
    const QDBusMessage reply = QDBusConnection::sessionBus().call(request, QDBus::Block, patience);
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {};
    return reply.arguments();
}

}
