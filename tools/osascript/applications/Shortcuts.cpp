// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/Shortcuts.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/ScriptError.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

Shortcuts::Shortcuts(Host &host)
    : Application(u"Shortcuts"_s, host)
{
}

QList<Object> Shortcuts::elements(const Object &container, const QString &className)
{
    if (className != u"shortcut")
        return Application::elements(container, className);
    QList<Object> objects;
    for (const QString &name : host().shortcuts.names())
        objects.append(element(className, name));
    return objects;
}

Value Shortcuts::perform(const Invocation &invocation)
{
    const auto *object = invocation.direct.as<Object>();
    if (!invocation.is(u"run") || !object || object->className != u"shortcut")
        return Application::perform(invocation);
    const Result<QString> output
        = host().shortcuts.run(object->key, textOf(invocation.argument(u"with input")));
    if (!output)
        check(output.error());
    return output->isEmpty() ? Value() : Value(*output);
}

}
