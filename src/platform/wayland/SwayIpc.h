// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Descriptor.h"

#include <QJsonDocument>
#include <QList>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>

namespace Tessel {

class WaylandConnection;

/// A connection to the IPC of sway (sway-ipc(7)). Waits for sway only where it says so.
class SwayIpc final : public QObject
{
    Q_OBJECT

public:
    enum class Request : quint32 { runCommand = 0, subscribe = 2, getInputs = 100 };
    enum class Event : quint32 {
        workspace = 0x80000000,
        binding = 0x80000005,
        input = 0x80000015,
    };
    using Answer = std::function<void(const QJsonDocument &answer)>;

    /// Null where the compositor is not the sway of $SWAYSOCK. Needs the application object.
    [[nodiscard]] static std::unique_ptr<SwayIpc> open(const WaylandConnection &compositor);

    void ask(Request request, const QByteArray &payload, Answer then = {});

    /// Until all that was asked is answered.
    void waitForAnswers(std::chrono::milliseconds patience);

Q_SIGNALS:
    void happened(Tessel::SwayIpc::Event event, const QJsonObject &details);

private:
    explicit SwayIpc(Descriptor socket);
    void read();
    void handle(quint32 type, const QByteArray &payload);
    void lose();

    Descriptor m_socket;
    QByteArray m_incoming; ///< of a message that is not complete
    QList<Answer> m_answers; ///< that are awaited, in their order
};

}
