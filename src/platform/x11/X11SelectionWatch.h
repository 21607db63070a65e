// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

namespace Tessel {

class X11Connection;

/// Hears of a selection's owners by the XFIXES extension; of nothing without it.
class X11SelectionWatch final
{
public:
    /// The new owner, 0 when there is none any more, and the server's time.
    using Handler = std::function<void(quint32 owner, quint32 time)>;

    X11SelectionWatch(X11Connection &connection, quint32 selection, Handler changed);

private:
    std::shared_ptr<void> m_subscription;
};

}
