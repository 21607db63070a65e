// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"

namespace Tessel::Osascript {

/// Types, presses keys, and knows the applications that have windows.
class SystemEvents final : public Application
{
public:
    explicit SystemEvents(Host &host);

    [[nodiscard]] QList<Object> elements(const Object &container,
                                         const QString &className) override;
    [[nodiscard]] Value property(const Object &object, const QString &name) override;
    [[nodiscard]] bool setProperty(const Object &object, const QString &name,
                                   const Value &value) override;
    [[nodiscard]] QString nameOf(const Object &object) const override;
    [[nodiscard]] Value perform(const Invocation &invocation) override;

private:
    [[nodiscard]] Process processOf(const Object &object) const;
    void type(const Invocation &invocation);
    void press(const Invocation &invocation);
};

}
