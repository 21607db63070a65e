// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace Tessel {

/// Hears of the session being locked: from logind (org.freedesktop.login1.Session, "Lock") and from
/// the screen savers of the desktops ("ActiveChanged").
class SessionLock final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Begins to listen, once. Needs the application object.
    void start();

Q_SIGNALS:
    void locked();

private Q_SLOTS:
    void lock();
    void setActive(bool isActive);

private:
    void listen();

    bool m_isStarted = false;
};

}
