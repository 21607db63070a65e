// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Application.h"
#include "osascript/values/ScriptError.h"

#include <map>
#include <memory>

namespace Tessel::Osascript {

/// The applications that scripts can tell: those with an adapter, and all that are installed.
class Applications final
{
public:
    explicit Applications(Host &host);

    /// By name or identifier, whatever the case, with or without ".app"; nullptr when there is
    /// none. The same object each time.
    [[nodiscard]] Application *find(const QString &written);
    /// Lets all applications do what they have put off.
    void finish();
    /// What the object's application answers.
    [[nodiscard]] Value property(const Object &object, const QString &name) const;
    [[nodiscard]] bool setProperty(const Object &object, const QString &name,
                                   const Value &value) const;

    /// Calls the function; errors say that they come from the application.
    template <typename Function> auto ask(const Application &application, Function function) const
    {
        try {
            return function();
        } catch (ScriptError &error) {
            const QString prefix = application.name() + QStringLiteral(" got an error: ");
            if (!error.message.startsWith(prefix))
                error.message.prepend(prefix);
            throw;
        }
    }

private:
    [[nodiscard]] std::unique_ptr<Application> make(const QString &name);

    Host &m_host;
    std::map<QString, std::unique_ptr<Application>> m_applications; ///< by name in lower case
};

}
