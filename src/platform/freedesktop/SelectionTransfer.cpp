// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/SelectionTransfer.h"

#include <QEventLoop>

#include <utility>

namespace Tessel {

SelectionTransfer::SelectionTransfer(std::chrono::milliseconds patience,
                                     std::chrono::milliseconds limit)
{
    for (QTimer *timer : { &m_patience, &m_limit }) {
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this] { finish({}); });
    }
    m_patience.setInterval(patience);
    m_limit.start(limit);
}

std::optional<QByteArray> SelectionTransfer::wait()
{
    std::optional<QByteArray> result;
    QEventLoop loop;
    connect(this, &SelectionTransfer::finished, &loop,
            [&result, &loop](const std::optional<QByteArray> &text) {
                result = text;
                loop.quit();
            });
    loop.exec();
    return result;
}

void SelectionTransfer::finish(const std::optional<QByteArray> &text)
{
    if (std::exchange(m_isFinished, true))
        return;
    m_patience.stop();
    m_limit.stop();
    QMetaObject::invokeMethod(
        this, [this, text] { Q_EMIT finished(text); }, Qt::QueuedConnection);
}

}
