// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/wayland/WaylandSelections.h"

#include <QFuture>

#include <chrono>
#include <optional>

namespace Tessel {

class WaylandSelectionReader;
class WaylandFocus;

/// Whose text the primary selection is, and since when. Its owner is not told, but it is taken by
/// marking text in the window in front.
class WaylandPrimarySelection final : public QObject
{
    Q_OBJECT

public:
    struct Services
    {
        const WaylandSelections &selections;
        WaylandSelectionReader &reader;
        const WaylandFocus &focus;
    };

    explicit WaylandPrimarySelection(const Services &services);

    /// Whether its text was marked in this window. What was marked before our start was in none.
    [[nodiscard]] bool isMarkedIn(quint64 window) const;

    /// Whether it was taken since the active window is active. Some programs keep it for long after
    /// nothing is marked any more.
    [[nodiscard]] bool isNewerThanFocus() const { return m_isNewerThanFocus; }

    /// As WaylandSelectionReader::read().
    [[nodiscard]] QFuture<std::optional<QString>> text(std::chrono::milliseconds patience);

private:
    [[nodiscard]] quint64 activeWindow() const;
    void takePrimary();
    void takeActive();

    Services m_services;
    quint64 m_activeWindow; ///< the last that there was; 0: none yet
    quint64 m_markedWindow = 0; ///< 0: none
    bool m_isNewerThanFocus = false;
};

}
