// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CopyRequest.h"
#include "platform/x11/X11KeyLayout.h"

#include <QObject>

#include <memory>

namespace Tessel {

class Pasteboard;
class X11Connection;
class X11SelectionReader;
class X11Event;

/// Presses the copy shortcut through XTEST. Terminals, which Ctrl+C would interrupt, are served
/// from the PRIMARY selection that they own, or by Ctrl+Shift+C.
class X11CopyRequest final : public QObject, public CopyRequest
{
    Q_OBJECT

public:
    X11CopyRequest(X11Connection &connection, X11SelectionReader &reader, Pasteboard &pasteboard);

    void prepare() override;
    void copySelection(const FrontApplication &application) override;

private:
    enum class Chord { controlC, controlShiftC };

    void handle(const X11Event &event);
    [[nodiscard]] bool ownsPrimary(quint32 window) const;
    void copyPrimary();
    void press(Chord chord);

    X11Connection &m_connection;
    X11SelectionReader &m_reader;
    Pasteboard &m_pasteboard;
    std::shared_ptr<void> m_subscription;
    std::optional<X11CopyKeys> m_keys; ///< empty after a change of the layout
};

}
