// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Appearance.h"
#include "platform/freedesktop/DesktopLook.h"

#include <QDBusVariant> // moc has to know the slot's types

namespace Tessel {

/// What the desktop portal (org.freedesktop.portal.Settings), the window system and KDE's settings
/// say. The portal is asked first whether windows are dark and last for the font, whose scale the
/// others have in the resolution. Light as long as nobody says otherwise.
class FreedesktopAppearance : public Appearance
{
    Q_OBJECT

public:
    using Appearance::Appearance;

    /// Asks, and listens to changes; needs the application object.
    void start();

    [[nodiscard]] bool isDark() const final { return m_isDark; }
    [[nodiscard]] double fontSize() const final { return m_fontSize; }

protected:
    /// What the window system knows.
    void setSystemLook(const DesktopLook &look);

private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);
    void readKdeSettings();

private:
    void listen();
    void ask(const QString &group, const QString &key);
    void update();

    DesktopLook m_system;
    DesktopLook m_kde;
    DesktopLook m_portal;
    double m_textScale = 1; ///< the portal's
    bool m_isDark = false;
    double m_fontSize = standardFontSize;
};

}
