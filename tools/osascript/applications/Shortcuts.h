// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"

namespace Tessel::Osascript {

/// Runs the user's shortcuts.
class Shortcuts final : public Application
{
public:
    explicit Shortcuts(Host &host);

    [[nodiscard]] QList<Object> elements(const Object &container,
                                         const QString &className) override;
    [[nodiscard]] Value perform(const Invocation &invocation) override;
};

}
