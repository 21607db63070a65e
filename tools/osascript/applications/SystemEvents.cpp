// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/SystemEvents.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr qint64 maxKeyCode = 0x7f;

Modifiers modifiersOf(const Value &value)
{
    Modifiers modifiers;
    const std::pair<QStringView, bool *> names[] {
        { u"command down", &modifiers.command },
        { u"control down", &modifiers.control },
        { u"option down", &modifiers.option },
        { u"shift down", &modifiers.shift },
    };
    for (const Value &item : value.isNothing() ? QList<Value>() : toItems(value)) {
        const auto *constant = item.as<Constant>();
        const auto *name = std::find_if(std::begin(names), std::end(names), [&](const auto &known) {
            return constant && known.first == constant->name;
        });
        if (name == std::end(names))
            failToCoerce(printed(item), u"constant"_s);
        *name->second = true;
    }
    return modifiers;
}

}

SystemEvents::SystemEvents(Host &host)
    : Application(u"System Events"_s, host)
{
}

QList<Object> SystemEvents::elements(const Object &container, const QString &className)
{
    if (className != u"process")
        return Application::elements(container, className);
    QList<Object> objects;
    for (const Process &process : host().desktop.processes())
        objects.append(element(className, QString::number(process.id) + u' ' + process.name));
    return objects;
}

/// Windows of one process can belong to applications of different names.
Process SystemEvents::processOf(const Object &object) const
{
    for (const Process &process : host().desktop.processes()) {
        if (object.key == QString::number(process.id) + u' ' + process.name)
            return process;
    }
    failToGet(u"process "_s + quoted(nameOf(object)));
}

QString SystemEvents::nameOf(const Object &object) const
{
    return object.className == u"process" ? object.key.section(u' ', 1) : object.key;
}

Value SystemEvents::property(const Object &object, const QString &name)
{
    if (object.className != u"process")
        return Application::property(object, name);
    const Process process = processOf(object);
    if (name == u"name" || name == u"displayed name")
        return Value(process.name);
    if (name == u"frontmost")
        return Value(process.isFrontmost);
    if (name == u"visible")
        return Value(process.isVisible);
    if (name == u"unix id" || name == u"id")
        return process.id ? Value(process.id) : Value(Missing());
    return name == u"bundle identifier" ? Value(process.identifier) : Value();
}

bool SystemEvents::setProperty(const Object &object, const QString &name, const Value &value)
{
    if (object.className != u"process" || name != u"frontmost" || !toBoolean(value))
        return false;
    check(host().desktop.activate(processOf(object).name));
    return true;
}

void SystemEvents::type(const Invocation &invocation)
{
    const Modifiers modifiers = modifiersOf(invocation.argument(u"using"));
    for (const Value &text : toItems(invocation.direct))
        check(host().keyboard.type(textOf(text), modifiers));
}

void SystemEvents::press(const Invocation &invocation)
{
    const Modifiers modifiers = modifiersOf(invocation.argument(u"using"));
    QList<int> codes;
    for (const Value &code : toItems(invocation.direct)) {
        const qint64 number = toInteger(code);
        if (number < 0 || number > maxKeyCode)
            failToGet(u"key code "_s + printed(code));
        codes.append(static_cast<int>(number));
    }
    for (const int code : codes)
        check(host().keyboard.press(code, modifiers));
}

Value SystemEvents::perform(const Invocation &invocation)
{
    if (invocation.is(u"keystroke"))
        type(invocation);
    else if (invocation.is(u"key code"))
        press(invocation);
    else
        return Application::perform(invocation);
    return {};
}

}
