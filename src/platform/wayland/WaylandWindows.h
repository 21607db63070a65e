// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <optional>

namespace Tessel {

struct WindowNames;

/// A window of an application, as the compositor describes it.
struct WaylandWindow
{
    quint64 handle = 0; ///< never 0 and never given again
    QString applicationId; ///< of xdg_toplevel.set_app_id; an X11 program's window class
    QString title;
    qint64 processId = 0; ///< 0: the compositor does not tell
    bool isMinimized = false;
};

/// Its application's names. The same program goes by different ones ("mousepad",
/// "org.xfce.mousepad"), by its version and toolkit.
[[nodiscard]] WindowNames namesOf(const WaylandWindow &window);

/// The window that has the user's attention. Popups of ours do not count.
class WaylandFocus : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] virtual std::optional<WaylandWindow> active() const = 0;

Q_SIGNALS:
    void activeChanged();
};

/// The windows of all applications.
class WaylandWindows : public WaylandFocus
{
    Q_OBJECT

public:
    using WaylandFocus::WaylandFocus;

    /// In the order in which they were last active, the latest first.
    [[nodiscard]] virtual QList<WaylandWindow> all() const = 0;

    virtual void activate(quint64 handle) = 0;
    virtual void close(quint64 handle) = 0; ///< as its own button would
};

}
