// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/DesktopNotification.h"
#include "base/Result.h"

#include <QObject>

namespace Tessel {

/// A notification of the desktop (Desktop Notifications Specification 1.2), which may offer to open
/// a file.
class Notification final : public QObject
{
    Q_OBJECT

public:
    explicit Notification(DesktopNotification content);

    /// Waits for the server, but not for long. Afterwards finished() comes at once or when the user
    /// has done something with it.
    [[nodiscard]] Result<void> show();

Q_SIGNALS:
    void finished();

private Q_SLOTS:
    void actionInvoked(uint id, const QString &action);
    void notificationClosed(uint id, uint reason);

private:
    [[nodiscard]] QStringList offer(const QStringList &abilities);

    DesktopNotification m_content;
    uint m_id = 0;
};

}
