// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandTrigger.h"

#include <QDBusConnection>
#include <QDBusMessage> // moc has to know the slots' types
#include <QDBusObjectPath>

namespace Tessel {

/// The trigger by the desktop's portal (org.freedesktop.portal.GlobalShortcuts), which asks the
/// user once for each chord. Where there is none, or the user has refused, the key has to be bound
/// in the desktop's own configuration.
class PortalShortcuts final : public WaylandTrigger
{
    Q_OBJECT

public:
    /// Needs the application object, with the desktop file's name, by which the portal knows us.
    PortalShortcuts();
    ~PortalShortcuts() override;

    void set(const KeyChord &chord) override;
    void setWatching(bool isWatching) override { m_isWatching = isWatching; }
    [[nodiscard]] TriggerRoute route() const override;
    [[nodiscard]] QString binding() const override;

private Q_SLOTS:
    void handleResponse(uint code, const QVariantMap &results, const QDBusMessage &message);
    void handleActivated(const QDBusObjectPath &session);

private:
    enum class Step { none, creating, binding };

    void connectToPortal();
    void ask();
    void bind();
    void endSession();
    void request(Step step, const QString &method, const QVariantList &arguments,
                 QVariantMap options);
    void setBound(bool isBound);
    [[nodiscard]] QString shortcutId() const;

    QDBusConnection m_bus;
    KeyChord m_chord;
    QString m_session; ///< object path; empty: none
    Step m_step = Step::none; ///< of the request that has not been answered
    int m_requests = 0;
    bool m_isWatching = true;
    bool m_isBound = false;
};

}
