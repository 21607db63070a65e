// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/BusObject.h"
#include "platform/wayland/WaylandWindows.h"

#include <QDBusMessage> // moc has to know the slot's type

namespace Tessel {

/// GNOME Shell as the extension in it serves us: com.tessel.app.Shell.xml says how. The extension
/// comes and goes: when the session is unlocked and locked, and as the user likes.
class ShellBridge final : public WaylandFocus
{
    Q_OBJECT

public:
    ShellBridge();
    ~ShellBridge() override;

    /// Once; needs the application object. Nothing is known until attached().
    void start();

    [[nodiscard]] bool isAttached() const { return !m_shell.isEmpty(); }
    [[nodiscard]] std::optional<WaylandWindow> active() const override { return m_active; }

    /// As BusObject's; the token is put before the arguments. Nothing happens when not attached.
    void send(const char *method, const QVariantList &arguments = {}) const;
    void call(const char *method, const QVariantList &arguments, QObject *context,
              const std::function<void(const QVariantList &reply)> &then) const;

Q_SIGNALS:
    void attached();
    void detached();
    void triggered();
    void clicked(); ///< where no window is, while a popup has the focus
    void selectionChanged(uint selection, const QStringList &formats); ///< 1: the clipboard

private Q_SLOTS:
    void handle(const QDBusMessage &signal);

private:
    void attach();
    void attachTo(const QString &shell);
    void detach();
    void takeFront(const QVariant &window);

    QString m_token; ///< of this process
    QString m_shell; ///< unique name on the bus; empty: not attached
    std::optional<WaylandWindow> m_active;
};

}
