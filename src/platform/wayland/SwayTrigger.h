// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/SwayIpc.h"
#include "platform/wayland/WaylandTrigger.h"

#include <QElapsedTimer>

namespace Tessel {

class WaylandKeys;

/// The trigger as a binding of sway, made at run time for the user's keyboards only: what is passed
/// on comes from a keyboard of ours. A binding of the user's own for the key, which is for all
/// keyboards, rests meanwhile and is left as it is.
class SwayTrigger final : public WaylandTrigger
{
    Q_OBJECT

public:
    SwayTrigger(std::unique_ptr<SwayIpc> sway, WaylandKeys &keys);
    ~SwayTrigger() override; ///< takes the binding away

    void set(const KeyChord &chord) override;
    void setWatching(bool isWatching) override;
    [[nodiscard]] TriggerRoute route() const override;
    void passOn() override;

private:
    void handle(SwayIpc::Event event, const QJsonObject &details);
    void handlePress(const QJsonObject &binding);
    void findKeyboards();
    void bind();
    void unbind();

    std::unique_ptr<SwayIpc> m_sway;
    WaylandKeys &m_keys;
    KeyChord m_chord;
    QList<QByteArray> m_keyboards; ///< identifiers
    QList<QByteArray> m_bound; ///< what was bound, as sway is told to unbind it
    QElapsedTimer m_sincePress;
    quint32 m_keptKey = 0; ///< a scan code; 0: none
    bool m_isWatching = true;
    bool m_isRefused = false;
};

}
