// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CopyRequest.h"

#include <QObject>
#include <QTimer>

#include <memory>

namespace Tessel {

class Pasteboard;
class X11Connection;
class X11CurrentLayout;
class X11PrimarySelection;
class X11SelectionReader;
class X11WindowPing;

/// Presses Ctrl+Insert (IBM Common User Access), the copy shortcut that all toolkits know and that
/// interrupts nothing, through XTEST. Marked text is the PRIMARY selection.
class X11CopyRequest final : public QObject, public CopyRequest
{
    Q_OBJECT

public:
    struct Services
    {
        X11Connection &connection;
        X11SelectionReader &reader;
        X11CurrentLayout &layout;
        X11PrimarySelection &primary;
        Pasteboard &pasteboard;
    };

    explicit X11CopyRequest(const Services &services);
    ~X11CopyRequest() override;

    void prepare() override;
    [[nodiscard]] QFuture<void> whenReady() override { return QtFuture::makeReadyFuture(); }
    [[nodiscard]] QFuture<void> copySelection(const FrontApplication &application) override;
    [[nodiscard]] QFuture<bool> copyMarkedText(const FrontApplication &application,
                                               Marked marked) override;

private:
    Services m_services;
    std::unique_ptr<X11WindowPing> m_ping; ///< after the last shortcut
    QTimer m_patience; ///< for its answer
};

}
