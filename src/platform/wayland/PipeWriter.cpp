// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/wayland/PipeWriter.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

using namespace std::chrono_literals;

namespace Tessel {

PipeWriter::PipeWriter(Descriptor pipe, QByteArray bytes)
    : m_bytes(std::move(bytes))
    , m_pipe(std::move(pipe))
    , m_writable(m_pipe.number(), QSocketNotifier::Write)
{
    fcntl(m_pipe.number(), F_SETFL, fcntl(m_pipe.number(), F_GETFL) | O_NONBLOCK);
    connect(&m_writable, &QSocketNotifier::activated, this, &PipeWriter::writePiece);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &PipeWriter::finished);
    m_patience.start(10s);
}

void PipeWriter::writePiece()
{
    const auto rest = static_cast<std::size_t>(m_bytes.size() - m_written);
    const ssize_t size = write(m_pipe.number(), m_bytes.constData() + m_written, rest);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (size > 0)
        m_written += size;
    if (size < 0 || m_written == m_bytes.size()) {
        m_writable.setEnabled(false);
        m_patience.stop();
        Q_EMIT finished();
    } else {
        m_patience.start();
    }
}

}
