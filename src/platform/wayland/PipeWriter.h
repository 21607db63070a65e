// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

namespace Tessel {

/// Writes bytes to a pipe as fast as its reader takes them. One that takes nothing for ten seconds
/// gets no more. SIGPIPE has to be ignored.
class PipeWriter final : public QObject
{
    Q_OBJECT

public:
    PipeWriter(Descriptor pipe, QByteArray bytes);

Q_SIGNALS:
    void finished(); ///< once, never from the constructor

private:
    void writePiece();

    QByteArray m_bytes;
    qsizetype m_written = 0;
    Descriptor m_pipe;
    QSocketNotifier m_writable;
    QTimer m_patience;
};

}
