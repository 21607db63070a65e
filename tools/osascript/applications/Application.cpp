// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/Application.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

Value Invocation::argument(QStringView label) const
{
    for (const Field &argument : arguments) {
        if (argument.name == label)
            return argument.value;
    }
    return {};
}

Application::Application(QString name, Host &host)
    : m_name(std::move(name))
    , m_host(host)
{
}

Value Application::object()
{
    return Value(element(u"application"_s, m_name));
}

Object Application::element(const QString &className, const QString &key)
{
    return { this, className, key };
}

QList<Object> Application::elements(const Object & /*container*/, const QString &className)
{
    failToGet(u"every "_s + className);
}

Value Application::property(const Object &object, const QString &name)
{
    if (object.className != u"application")
        return name == u"name" ? Value(nameOf(object))
            : name == u"id"    ? Value(object.key)
                               : Value();
    Desktop &desktop = m_host.desktop;
    if (name == u"name")
        return Value(m_name);
    if (name == u"running")
        return Value(!desktop.isInstalled(m_name) || desktop.isRunning(m_name));
    if (name == u"frontmost") {
        const QList<Process> processes = desktop.processes();
        return Value(!processes.isEmpty() && processes.constFirst().isFrontmost
                     && processes.constFirst().name.compare(m_name, Qt::CaseInsensitive) == 0);
    }
    return {};
}

bool Application::setProperty(const Object & /*object*/, const QString & /*name*/,
                              const Value & /*value*/)
{
    return false;
}

QString Application::nameOf(const Object &object) const
{
    return object.key;
}

bool Application::acceptsName(const QString & /*className*/) const
{
    return false;
}

Value Application::perform(const Invocation &invocation)
{
    Desktop &desktop = m_host.desktop;
    const bool isInstalled = desktop.isInstalled(m_name);
    if (invocation.is(u"activate"))
        isInstalled ? check(desktop.activate(m_name)) : activate();
    else if (invocation.is(u"launch") || invocation.is(u"run"))
        check(isInstalled ? desktop.launch(m_name) : Result<void>());
    else if (invocation.is(u"quit"))
        check(isInstalled ? desktop.quit(m_name) : Result<void>());
    else if (invocation.is(u"open"))
        for (const Value &target : toItems(invocation.direct))
            check(desktop.open(textOf(target), isInstalled ? m_name : QString()));
    else
        failNotUnderstanding(invocation);
    return {};
}

void Application::failNotUnderstanding(const Invocation &invocation) const
{
    const Value &subject = invocation.direct.isNothing() ? invocation.target : invocation.direct;
    fail(ScriptError::notUnderstood,
         printed(subject) + u" doesn’t understand the “"_s + invocation.command->words.toString()
             + u"” message."_s);
}

QString Application::textOf(const Value &value)
{
    return value.isNothing() ? QString() : toText(value, {});
}

Application &applicationOf(const Object &object)
{
    return static_cast<Application &>(*object.owner);
}

}
