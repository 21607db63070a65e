// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/x11/X11KeyLayout.h"

#include <memory>
#include <optional>

namespace Tessel {

class X11Event;

/// The keyboard layout in use, asked for again only after it has changed.
class X11CurrentLayout final
{
public:
    explicit X11CurrentLayout(X11Connection &connection);

    /// Null when the server has no XKB keyboard. Valid until events are handled.
    [[nodiscard]] const X11KeyLayout *get();

    /// Another number for each layout that get() gave.
    [[nodiscard]] int revision() const { return m_revision; }

private:
    void handle(const X11Event &event);
    [[nodiscard]] quint32 symbolsName() const;

    X11Connection &m_connection;
    std::shared_ptr<void> m_subscription;
    std::optional<X11KeyLayout> m_layout; ///< empty after a change
    int m_revision = 0;
    /// Keys came from another device than before: each capture does that. Nearly always the two
    /// have the same layout, which takes a millisecond or two to read.
    bool m_isSuspect = true;
    quint32 m_symbolsName = 0; ///< of the layout
};

}
