// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "support/GnomeUser.h"

#include <QDBusMessage>
#include <QDBusObjectPath>

#include <linux/input-event-codes.h>

using namespace Qt::StringLiterals;

namespace Tessel::Desktop {

namespace {

constexpr QPoint farAway(-100'000, -100'000); // in the top left corner, whatever the screen is

const QString service = u"org.gnome.Mutter.RemoteDesktop"_s;

}

GnomeUser::GnomeUser(const QDBusConnection &bus)
    : m_bus(bus)
{
    const auto session = m_bus.call(QDBusMessage::createMethodCall(
        service, u"/org/gnome/Mutter/RemoteDesktop"_s, service, u"CreateSession"_s));
    m_path = session.arguments().value(0).value<QDBusObjectPath>().path();
    m_isStarted = !m_path.isEmpty() && notify(u"Start"_s, {});
    movePointerBy(farAway);
}

bool GnomeUser::notify(const QString &method, const QVariantList &arguments)
{
    auto call = QDBusMessage::createMethodCall(service, m_path, service + u".Session"_s, method);
    call.setArguments(arguments);
    return m_bus.call(call).type() == QDBusMessage::ReplyMessage;
}

void GnomeUser::setKey(quint32 key, bool isDown)
{
    notify(u"NotifyKeyboardKeycode"_s, { key, isDown });
}

void GnomeUser::setLeftButton(bool isDown)
{
    notify(u"NotifyPointerButton"_s, { BTN_LEFT, isDown });
}

void GnomeUser::movePointerBy(const QPoint &distance)
{
    notify(u"NotifyPointerMotionRelative"_s, { double(distance.x()), double(distance.y()) });
}

void GnomeUser::movePointer(const QPoint &position)
{
    // It moves in any case.
    const QPoint beside(position.x() ^ 1, position.y());
    movePointerBy(beside - m_position);
    movePointerBy(position - beside);
    m_position = position;
}

void GnomeUser::scroll(int steps)
{
    constexpr quint32 vertical = 0;
    notify(u"NotifyPointerAxisDiscrete"_s, { vertical, steps });
}

}
