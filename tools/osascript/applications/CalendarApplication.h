// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"

namespace Tessel::Osascript {

/// Calendar and Reminders. What they make is handed to the desktop's calendar as a file.
class CalendarApplication final : public Application
{
public:
    CalendarApplication(QString name, Host &host);

    [[nodiscard]] QList<Object> elements(const Object &container,
                                         const QString &className) override;
    [[nodiscard]] Value property(const Object &object, const QString &name) override;
    [[nodiscard]] bool acceptsName(const QString &className) const override;
    [[nodiscard]] Value perform(const Invocation &invocation) override;
};

}
