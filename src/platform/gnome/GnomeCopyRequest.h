// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CopyRequest.h"
#include "platform/gnome/BareDesktop.h"

namespace Tessel {

/// By the shell's extension, else by X11: native applications cannot be asked then, but what is
/// marked in them can be had.
class GnomeCopyRequest final : public CopyRequest
{
public:
    GnomeCopyRequest(CopyRequest &byShell, const BareDesktop &bare)
        : m_byShell(byShell)
        , m_bare(bare)
    {
    }

    void prepare() override { current().prepare(); }
    [[nodiscard]] QFuture<void> whenReady() override { return current().whenReady(); }
    [[nodiscard]] QFuture<void> copySelection(const FrontApplication &application) override
    {
        return current().copySelection(application);
    }
    [[nodiscard]] QFuture<bool> copyMarkedText(const FrontApplication &application,
                                               Marked marked) override
    {
        return current().copyMarkedText(application, marked);
    }

private:
    [[nodiscard]] CopyRequest &current()
    {
        Platform *x11 = m_bare.x11();
        return x11 ? x11->copyRequest() : m_byShell;
    }

    CopyRequest &m_byShell;
    const BareDesktop &m_bare;
};

}
