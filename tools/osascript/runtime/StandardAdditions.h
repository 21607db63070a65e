// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"
#include "osascript/values/TextContext.h"

namespace Tessel::Osascript {

/// The commands that every script can use: clipboard, dialogs, shell, files, sounds.
class StandardAdditions final
{
public:
    explicit StandardAdditions(Host &host);

    [[nodiscard]] Value perform(const Invocation &invocation, const TextContext &context);

private:
    Host &m_host;
};

}
