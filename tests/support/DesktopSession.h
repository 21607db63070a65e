// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/Session.h"

#include <QList>
#include <QRect>
#include <QSize>

namespace Tessel::Desktop {

class XClipboard;
class XUser;

struct DesktopOptions
{
    // Pixels of the root window; the first is the primary one. A monitor may lie left of or above
    // the root window (negative origin): programs see it, but the pointer cannot get there.
    QList<QRect> monitors { QRect(0, 0, 1280, 800) };
    // XKB layouts, separated by commas, as for setxkbmap(1).
    QString keyboardLayout = QStringLiteral("us");
    // Xft.dpi of the X resources, from which toolkits take their scale; 0 leaves it unset.
    int dpi = 0;
    bool windowManager = true; // openbox
    bool compositor = false; // picom
    bool sessionBus = true;
};

// A private desktop: an X server with a window manager.
class DesktopSession final : public Session
{
public:
    DesktopSession();
    ~DesktopSession() override;

    // Returns when the desktop is ready to be used; false with a reason in errorString().
    [[nodiscard]] bool start(const DesktopOptions &options = {});

    [[nodiscard]] QString display() const { return m_display; }
    // Starts the settings service of XFCE's programs, which the session's bus does not activate.
    void launchXfceSettings();

    // Replaces the keyboard layout of the running server.
    [[nodiscard]] bool setKeyboardLayout(const QString &layout);
    [[nodiscard]] bool startCompositor();

    // Valid after start().
    [[nodiscard]] XUser &user() const { return *m_user; }
    [[nodiscard]] XClipboard &clipboard() const { return *m_clipboard; }

private:
    [[nodiscard]] bool startServer(const QSize &size);
    [[nodiscard]] bool defineMonitors(const QList<QRect> &monitors);
    [[nodiscard]] bool startWindowManager();

    QString m_display;
    std::unique_ptr<XUser> m_user;
    std::unique_ptr<XClipboard> m_clipboard;
};

}
