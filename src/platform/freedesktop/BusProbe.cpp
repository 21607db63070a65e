// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/BusProbe.h"

#include <QList>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <sys/socket.h>
#include <sys/un.h>

namespace Tessel {

namespace {

/// The value of a key in an address such as "unix:path=/run/user/1000/bus,guid=…".
QByteArray value(const QByteArray &address, const QByteArray &key)
{
    const QList<QByteArray> pairs = address.mid(address.indexOf(':') + 1).split(',');
    for (const QByteArray &pair : pairs) {
        if (pair.startsWith(key + '='))
            return QByteArray::fromPercentEncoding(pair.mid(key.size() + 1));
    }
    return {};
}

/// The name of the first local socket as connect(2) has it; one without a file begins with a null.
QByteArray socketName(const QByteArray &addresses)
{
    const QByteArray address = addresses.split(';').constFirst();
    if (!address.startsWith("unix:"))
        return {};
    if (value(address, "runtime") == "yes")
        return qgetenv("XDG_RUNTIME_DIR") + "/bus";
    const QByteArray abstract = value(address, "abstract");
    return abstract.isEmpty() ? value(address, "path") : '\0' + abstract;
}

}

BusProbe::BusProbe(const QByteArray &address)
{
    const QByteArray name = socketName(address);
    sockaddr_un where = {};
    where.sun_family = AF_UNIX;
    if (name.isEmpty() || name.size() >= qsizetype(sizeof where.sun_path))
        return;
    std::copy(name.cbegin(), name.cend(), where.sun_path);
    const auto size = socklen_t(offsetof(sockaddr_un, sun_path) + size_t(name.size()));

    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const QByteArray greeting
        = QByteArray("\0AUTH EXTERNAL ", 15) + QByteArray::number(::geteuid()).toHex() + "\r\n";
    if (::connect(socket.number(), reinterpret_cast<const sockaddr *>(&where), size) != 0)
        m_isCrowded = errno == EAGAIN;
    else if (::send(socket.number(), greeting.constData(), size_t(greeting.size()), MSG_NOSIGNAL)
             > 0)
        m_socket = std::move(socket);
}

}
