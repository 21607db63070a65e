// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/Evaluator.h"

#include "osascript/language/ScriptSource.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/StackLimit.h"
#include "osascript/values/ValueProperties.h"

#include <QFile>
#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

[[noreturn]] void failNotUnderstanding(const Value &receiver, const QString &message)
{
    fail(ScriptError::notUnderstood,
         printed(receiver) + u" doesn’t understand the “"_s + message + u"” message."_s);
}

QString sourceOf(const Value &script, const TextContext &context)
{
    if (!script.is<File>())
        return toText(script, context);
    QFile file(script.get<File>().path);
    if (!file.open(QIODevice::ReadOnly))
        failWith(-43, u"File "_s + file.fileName() + u" wasn’t found."_s);
    const Result<QString> source = readScriptSource(file);
    if (!source)
        fail(ScriptError::failed, source.error().reason);
    return *source;
}

}

/// What a script tells by name has to be there before any of it runs.
void Evaluator::checkApplications(const ParsedScript &parsed)
{
    for (const auto &[name, where] : parsed.applications) {
        if (!m_applications.find(name))
            throw ScriptError { u"Can’t get application "_s + quoted(name) + u'.',
                                ScriptError::cannotGet, ScriptError::Phase::execution, where };
    }
}

Value Evaluator::evaluateForm(const CommandExpression &command)
{
    Invocation invocation { .command = command.command };
    invocation.direct = optionalValueOf(command.direct);
    for (const auto &[parameter, value] : command.arguments) {
        const auto *element = std::get_if<ElementExpression>(&value->form);
        const bool isInsertion = element && element->form == ElementExpression::Form::insertion;
        // "at end of events" is about where, and there need not be any.
        const bool isPlace = parameter->kind == ParameterTerm::Kind::place && isInsertion;
        invocation.arguments.append(
            { parameter->label.toString(), isPlace ? Value(true) : valueOf(value) });
    }
    invocation.target = frame().it;
    const Value result = perform(invocation);
    const Value className = invocation.argument(u"as");
    return className.is<ClassName>() ? coerced(result, className.get<ClassName>().name, context())
                                     : result;
}

Value Evaluator::perform(const Invocation &invocation)
{
    if (invocation.is(u"count"))
        return Value(valueLength(invocation.direct));
    if (invocation.is(u"run script")) {
        const Value arguments = invocation.argument(u"with parameters");
        return run(sourceOf(invocation.direct, context()),
                   arguments.isNothing() ? QList<Value>() : toItems(arguments));
    }
    if (invocation.command->suite == Suite::additions)
        return m_additions.perform(invocation, context());
    const bool isRun = invocation.command->suite == Suite::application && invocation.is(u"run");
    return isRun ? runObject(invocation) : performOnApplication(invocation);
}

/// `run` without a value runs what is told.
Value Evaluator::runObject(const Invocation &invocation)
{
    const Value subject = invocation.direct.isNothing() ? invocation.target : invocation.direct;
    auto *const *script = subject.as<ScriptObject *>();
    if (!script)
        return performOnApplication(invocation);
    ScriptObject *owner = *script;
    const HandlerDefinition *handler = findHandler(owner, u"run"_s);
    return call(owner, *handler, {});
}

Value Evaluator::performOnApplication(const Invocation &invocation)
{
    // "activate application x" says itself whom it is meant for.
    const auto *direct = invocation.direct.as<Object>();
    const bool isToDirect = direct && direct->className == u"application"
        && invocation.command->suite == Suite::application;
    Invocation meant = invocation;
    if (isToDirect) {
        meant.target = invocation.direct;
        meant.direct = Value();
    }
    const auto *told = meant.target.as<Object>();
    Application *application = told ? &applicationOf(*told) : nullptr;
    if (!application && invocation.is(u"open"))
        application = m_applications.find(u"Finder"_s); // which asks for the default handler
    if (!application)
        failNotUnderstanding(invocation.direct.isNothing() ? invocation.target : invocation.direct,
                             invocation.command->words.toString());
    return m_applications.ask(*application, [&] { return application->perform(meant); });
}

const HandlerDefinition *Evaluator::findHandler(ScriptObject *&owner, const QString &name)
{
    for (ScriptObject *script = owner; script; script = script->outer) {
        for (const HandlerDefinition &handler : script->block->handlers) {
            if (handler.name.compare(name, Qt::CaseInsensitive) == 0) {
                owner = script;
                return &handler;
            }
        }
        if (name == u"run")
            break;
    }
    return nullptr;
}

Value Evaluator::evaluateForm(const CallExpression &expression)
{
    const Value target = expression.target ? valueOf(expression.target) : frame().it;
    const auto *told = target.as<ScriptObject *>();
    const bool isSpecial = expression.target || target.is<Object>();
    ScriptObject *owner = told ? *told : isSpecial ? nullptr : frame().me;
    const HandlerDefinition *handler = owner ? findHandler(owner, expression.name) : nullptr;
    if (!handler && !isSpecial) { // what is told does not know it
        owner = frame().me;
        handler = findHandler(owner, expression.name);
    }
    const Value *variable = handler || expression.target ? nullptr : findVariable(expression.name);
    if (const auto *held = variable ? variable->as<Handler>() : nullptr) {
        handler = held->definition;
        owner = held->owner;
    }
    if (!handler)
        failNotUnderstanding(target, expression.name);
    return call(owner, *handler, orderedArguments(expression, *handler));
}

/// The arguments in the order of the handler's parameters.
QList<Value> Evaluator::orderedArguments(const CallExpression &expression,
                                         const HandlerDefinition &handler)
{
    QList<Value> values;
    for (const ExpressionPointer &argument : expression.arguments)
        values.append(heldBy(argument));
    if (handler.labels.isEmpty()) {
        const bool fits = static_cast<size_t>(values.size()) == handler.parameters.size();
        if (!fits || !expression.labels.isEmpty())
            failWith(-1721,
                     printed(Value::list(values)) + u" doesn’t match the parameters for "_s
                         + handler.name + u'.');
        return values;
    }
    QList<Value> ordered;
    for (const QString &label : handler.labels) {
        const qsizetype at = expression.labels.indexOf(label);
        if (at < 0)
            fail(ScriptError::missingParameter,
                 u"The "_s + label + u" parameter is missing for "_s + handler.name + u'.');
        ordered.append(values.at(at));
    }
    return ordered;
}

Value Evaluator::call(ScriptObject *owner, const HandlerDefinition &handler,
                      const QList<Value> &arguments)
{
    checkStack();
    Frame callee { .me = owner, .it = Value(owner) };
    const bool isRun = handler.name == u"run";
    callee.variables = isRun ? &owner->runVariables : &callee.own;
    const QScopedValueRollback running(m_frame, &callee);
    bind(handler, arguments);
    const Flow flow = execute(handler.body);
    return flow == Flow::exitRepeat ? Value() : callee.result;
}

void Evaluator::bind(const HandlerDefinition &handler, const QList<Value> &arguments)
{
    const auto declare = [this](const auto &self, const Expression &pattern) -> void {
        if (const auto *variable = std::get_if<Variable>(&pattern.form))
            frame().locals.insert(variable->name.toLower());
        else if (const auto *list = std::get_if<ListExpression>(&pattern.form))
            for (const ExpressionPointer &item : list->items)
                self(self, *item);
        else if (const auto *record = std::get_if<RecordExpression>(&pattern.form))
            for (const ExpressionPointer &value : record->values)
                self(self, *value);
    };
    for (const ExpressionPointer &parameter : handler.parameters)
        declare(declare, *parameter);
    if (handler.takesOptionalArguments && handler.labels.isEmpty()) { // the run handler
        if (!handler.parameters.empty())
            assign(*handler.parameters.front(), Value::list(arguments));
        return;
    }
    for (qsizetype i = 0; i < arguments.size(); ++i)
        assign(*handler.parameters[static_cast<size_t>(i)], arguments.at(i));
}

ScriptObject *Evaluator::instantiate(const ScriptBlock &block, ScriptObject *outer,
                                     const Variables &captured)
{
    m_scripts.push_back(std::make_unique<ScriptObject>());
    ScriptObject *script = m_scripts.back().get();
    script->block = &block;
    script->outer = outer;
    script->captured = captured;
    script->name = block.name;
    for (const QString &name : block.globals)
        script->globals.insert(name.toLower());
    Frame initial { .me = script, .variables = &script->properties, .it = Value(script) };
    const QScopedValueRollback running(m_frame, &initial);
    for (const auto &[name, value, inner] : block.properties) {
        const Value first = inner ? Value(instantiate(*inner, script)) : valueOf(value);
        script->properties.insert(name.toLower(), first);
    }
    return script;
}

}
