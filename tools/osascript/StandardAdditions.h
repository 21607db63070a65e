// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "TextContext.h"
#include "applications/Application.h"

namespace osascript {

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
