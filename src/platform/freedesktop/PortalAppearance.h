// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"

#include <QDBusVariant> // moc has to know the slot's types

namespace Tessel {

/// The desktop portal's colour scheme (org.freedesktop.portal.Settings, key
/// "org.freedesktop.appearance" "color-scheme"). Light as long as nobody says otherwise.
class PortalAppearance final : public Appearance
{
    Q_OBJECT

public:
    using Appearance::Appearance;

    /// Asks, and listens to changes; needs the application object.
    void start();

    [[nodiscard]] bool isDark() const override { return m_isDark; }

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    void setColorScheme(const QVariant &value);

    bool m_isDark = false;
};

}
