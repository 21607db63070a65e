// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/SwayIpc.h"

#include "platform/wayland/WaylandConnection.h"

#include <QDeadlineTimer>
#include <QJsonObject>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <wayland-client.h>

namespace Tessel {

namespace {

constexpr qsizetype maxMessage = 4 << 20; ///< bytes
constexpr quint32 eventBit = 0x80000000;

/// Both numbers are in the byte order of the machine.
struct Header
{
    char magic[6] = { 'i', '3', '-', 'i', 'p', 'c' };
    char size[sizeof(quint32)] = {}; ///< of the payload
    char type[sizeof(quint32)] = {};
};

/// The process that listens at the other end of a local socket; nothing when that is not known.
std::optional<pid_t> serverOf(int socket)
{
    ucred server = {};
    socklen_t size = sizeof server;
    if (::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &server, &size) != 0)
        return {};
    return server.pid;
}

}

std::unique_ptr<SwayIpc> SwayIpc::open(const WaylandConnection &compositor)
{
    const QByteArray path = qgetenv("SWAYSOCK");
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    if (path.isEmpty() || path.size() >= qsizetype(sizeof name.sun_path))
        return nullptr;
    std::copy(path.cbegin(), path.cend(), name.sun_path);
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    if (::connect(socket.number(), reinterpret_cast<const sockaddr *>(&name), sizeof name) != 0)
        return nullptr;
    // A compositor that runs in a window of sway has inherited the variable.
    if (serverOf(socket.number()) != serverOf(wl_display_get_fd(compositor.display())))
        return nullptr;
    return std::unique_ptr<SwayIpc>(new SwayIpc(std::move(socket)));
}

SwayIpc::SwayIpc(Descriptor socket)
    : m_socket(std::move(socket))
{
    auto *notifier = new QSocketNotifier(m_socket.number(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &SwayIpc::read);
}

void SwayIpc::ask(Request request, const QByteArray &payload, Answer then)
{
    Header header;
    const auto size = quint32(payload.size());
    std::memcpy(header.size, &size, sizeof size);
    std::memcpy(header.type, &request, sizeof request);
    const QByteArray message
        = QByteArray(reinterpret_cast<char *>(&header), sizeof header) + payload;
    m_answers.append(std::move(then));
    // What is asked is small: a buffer without room for it means that sway has stopped.
    if (::send(m_socket.number(), message.constData(), size_t(message.size()), MSG_NOSIGNAL)
        != message.size())
        lose();
}

void SwayIpc::waitForAnswers(std::chrono::milliseconds patience)
{
    const QDeadlineTimer deadline(patience);
    pollfd answer { .fd = m_socket.number(), .events = POLLIN, .revents = 0 };
    while (!m_answers.isEmpty() && ::poll(&answer, 1, int(deadline.remainingTime())) > 0)
        read();
}

void SwayIpc::read()
{
    char bytes[8192];
    const ssize_t size = ::recv(m_socket.number(), bytes, sizeof bytes, 0);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (size <= 0)
        return lose();
    m_incoming.append(bytes, size);
    Header header;
    while (m_incoming.size() >= qsizetype(sizeof header)) {
        std::memcpy(&header, m_incoming.constData(), sizeof header);
        quint32 payloadSize = 0;
        quint32 type = 0;
        std::memcpy(&payloadSize, header.size, sizeof payloadSize);
        std::memcpy(&type, header.type, sizeof type);
        const qsizetype end = qsizetype(sizeof header) + qsizetype(payloadSize);
        if (end > maxMessage)
            return lose();
        if (m_incoming.size() < end)
            return;
        const QByteArray payload = m_incoming.mid(sizeof header, qsizetype(payloadSize));
        m_incoming.remove(0, end);
        handle(type, payload);
    }
}

void SwayIpc::handle(quint32 type, const QByteArray &payload)
{
    const QJsonDocument content = QJsonDocument::fromJson(payload);
    if (type & eventBit) {
        Q_EMIT happened(Event(type), content.object());
    } else if (!m_answers.isEmpty()) {
        if (const Answer then = m_answers.takeFirst())
            then(content);
    }
}

/// Nothing more comes; the compositor's own connection tells the program.
void SwayIpc::lose()
{
    findChild<QSocketNotifier *>()->setEnabled(false);
    m_answers.clear();
}

}
