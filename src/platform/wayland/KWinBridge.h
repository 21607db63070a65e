// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandWindows.h"

#include <QDBusContext>
#include <QHash>
#include <QRect>

#include <memory>

namespace Tessel {

class KWinScript;
class WaylandConnection;

/// What KWin tells about windows and the trigger, and does for us, by scripts of ours in it: it has
/// no protocol for that which any client may use.
class KWinBridge final : public WaylandWindows, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.tessel.app.KWin")

public:
    /// Whether the compositor is KWin: by a protocol of its own that all clients may use.
    [[nodiscard]] static bool isOffered(const WaylandConnection &connection);

    KWinBridge();
    ~KWinBridge() override;

    /// Once; needs the application object. Nothing is known until KWin has answered.
    void start();

    [[nodiscard]] QList<WaylandWindow> all() const override { return m_windows; }
    [[nodiscard]] std::optional<WaylandWindow> active() const override;
    void activate(quint64 handle) override;
    void close(quint64 handle) override;

    /// The screen without panels and docks, in KWin's logical pixels, which are Qt's.
    [[nodiscard]] std::optional<QRect> workArea(const QRect &screen) const;

public Q_SLOTS:
    /// The scripts call these (KWinScripts.h).
    Q_SCRIPTABLE void update(const QString &state);
    Q_SCRIPTABLE void trigger(const QString &state);
    Q_SCRIPTABLE void finish(const QString &request);

Q_SIGNALS:
    void ready(); ///< the script runs, and has registered the trigger's action
    void triggered(); ///< also when the key repeats

private:
    void runScript();
    [[nodiscard]] bool isFromKWin() const;
    void read(const QString &state);
    void request(quint64 handle, const QString &statement);

    QString m_kwin; ///< unique name on the bus
    std::unique_ptr<KWinScript> m_script;
    QHash<QString, std::shared_ptr<KWinScript>> m_requests; ///< under way, by name
    int m_lastRequest = 0;
    bool m_isReady = false;

    QList<WaylandWindow> m_windows;
    quint64 m_active = 0;
    QList<QRect> m_workAreas;
    QHash<QString, quint64> m_handles; ///< of KWin's own identifiers
    quint64 m_lastHandle = 0;
};

}
