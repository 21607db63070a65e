// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CopyRequest.h"

#include <QObject>

namespace Tessel {

class Pasteboard;
class WaylandKeys;
class WaylandPrimarySelection;

/// Presses Ctrl+Insert (IBM Common User Access), the copy shortcut that all toolkits know and that
/// interrupts nothing. Marked text is the primary selection. No program tells whether it has seen
/// the shortcut.
class WaylandCopyRequest final : public QObject, public CopyRequest
{
    Q_OBJECT

public:
    struct Services
    {
        WaylandKeys &keys;
        WaylandPrimarySelection &primary;
        Pasteboard &pasteboard;
    };

    explicit WaylandCopyRequest(const Services &services)
        : m_services(services)
    {
    }

    void prepare() override;
    [[nodiscard]] QFuture<void> whenReady() override;
    [[nodiscard]] QFuture<void> copySelection(const FrontApplication &application) override;
    [[nodiscard]] QFuture<bool> copyMarkedText(const FrontApplication &application,
                                               Marked marked) override;

private:
    Services m_services;
};

}
