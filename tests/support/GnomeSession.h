// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/WaylandDesktop.h"

#include <QDBusConnection>
#include <QJsonValue>

namespace Tessel::Desktop {

struct GnomeOptions
{
    bool extension = true; // ours is installed and switched on
    QString keyboardLayout = QStringLiteral("us");
};

// A private GNOME: its shell without a screen, on buses of its own, with X11 programs. The shell
// talks to its own user alone, which root cannot be.
class GnomeSession final : public WaylandDesktop
{
public:
    GnomeSession();
    ~GnomeSession() override;

    // Returns when the desktop is ready to be used; false with a reason in errorString().
    [[nodiscard]] bool start(const GnomeOptions &options = {});

    [[nodiscard]] bool waitForFocus(const QString &application) override;
    [[nodiscard]] QImage screenshot() override;
    [[nodiscard]] QString primarySelection() override;
    [[nodiscard]] QString clipboard() override;

    // The session's bus, as any program has it.
    [[nodiscard]] QDBusConnection bus() const;
    // The value of JavaScript in the shell; undefined: it has none, or fails.
    QJsonValue evaluate(const QString &script);

    void endShell() { m_shell->end(); }
    // As after a new login.
    [[nodiscard]] bool restartShell();

private:
    [[nodiscard]] bool writeSettings(const GnomeOptions &options);
    [[nodiscard]] bool installExtension();
    [[nodiscard]] bool startSystemServices();
    [[nodiscard]] bool startShell();
    [[nodiscard]] QString selectedText(const QString &type);

    ChildProcess *m_shell = nullptr;
};

}
