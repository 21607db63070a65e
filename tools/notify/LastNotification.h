// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// Which notification was the last one of a topic: a small file below $XDG_RUNTIME_DIR, without
/// which there is none. Numbers count with the server that gave them only, so that those of another
/// program are never replaced.
class LastNotification final
{
public:
    /// `server`: its unique name on the bus. An empty topic has no last notification.
    LastNotification(const QString &topic, QString server);

    [[nodiscard]] uint id() const; ///< 0: none
    void setId(uint id) const;

private:
    QString m_path;
    QString m_server;
};

}
