// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/gnome/ShellBridge.h"

#include "base/Log.h"
#include "platform/DesktopBus.h"
#include "platform/gnome/ShellInterface.h"
#include "platform/gnome/ShellToken.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const BusObject bus { u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                      u"org.freedesktop.DBus"_s };

}

ShellBridge::ShellBridge()
    : m_token(ShellToken::make())
{
}

ShellBridge::~ShellBridge()
{
    ShellToken::remove();
}

void ShellBridge::start()
{
    DesktopBus::whenReady(this, [this] {
        // From whoever: by the name of the shell, Qt would wait for the bus.
        QDBusConnection::sessionBus().connect({}, ShellInterface::path, ShellInterface::name, {},
                                              this, SLOT(handle(QDBusMessage)));
    });
}

void ShellBridge::send(const char *method, const QVariantList &arguments) const
{
    if (isAttached())
        ShellInterface::object().send(method, QVariantList { m_token } + arguments);
}

void ShellBridge::call(const char *method, const QVariantList &arguments, QObject *context,
                       const std::function<void(const QVariantList &reply)> &then) const
{
    if (isAttached())
        ShellInterface::object().call(method, QVariantList { m_token } + arguments, context, then);
}

void ShellBridge::attach()
{
    detach();
    bus.call("GetNameOwner", { ShellInterface::object().service }, this,
             [this](const QVariantList &owner) { attachTo(owner.value(0).toString()); });
}

void ShellBridge::attachTo(const QString &shell)
{
    auto request = QDBusMessage::createMethodCall(shell, ShellInterface::path, ShellInterface::name,
                                                  u"Attach"_s);
    request.setArguments({ m_token });
    auto *watcher
        = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, shell] {
        watcher->deleteLater();
        const QDBusMessage reply = watcher->reply();
        if (reply.type() != QDBusMessage::ReplyMessage)
            return Log::print(u"WARNING: GNOME Shell: "_s + reply.errorMessage());
        m_shell = shell;
        ShellToken::publish(m_token);
        Q_EMIT attached();
    });
}

void ShellBridge::detach()
{
    if (!isAttached())
        return;
    ShellToken::remove();
    m_shell.clear();
    m_active.reset();
    Q_EMIT activeChanged();
    Q_EMIT detached();
}

void ShellBridge::takeFront(const QVariant &window)
{
    const WaylandWindow front = ShellInterface::windowOf(window);
    m_active = front.handle ? std::optional(front) : std::nullopt;
    Q_EMIT activeChanged();
}

/// Anybody may say that the extension is there: whom we tell the token is the shell.
void ShellBridge::handle(const QDBusMessage &signal)
{
    const QString member = signal.member();
    if (member == u"Ready")
        return attach();
    if (!isAttached() || signal.service() != m_shell)
        return;
    const QVariantList arguments = signal.arguments();
    if (member == u"Gone")
        detach();
    else if (member == u"Triggered")
        Q_EMIT triggered();
    else if (member == u"Clicked")
        Q_EMIT clicked();
    else if (member == u"FrontChanged")
        takeFront(arguments.value(0));
    else if (member == u"SelectionChanged")
        Q_EMIT selectionChanged(arguments.value(0).toUInt(), arguments.value(1).toStringList());
}

}
