// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/runtime/DialogCommands.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/TextElements.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

constexpr qsizetype maxButtons = 3;

QString textArgument(const Invocation &call, QStringView label, const TextContext &context)
{
    const Value value = call.argument(label);
    return value.isNothing() ? QString() : withLineFeeds(toText(value, context));
}

bool flagArgument(const Invocation &call, QStringView label)
{
    const Value value = call.argument(label);
    return !value.isNothing() && toBoolean(value);
}

QStringList texts(const Value &value, const TextContext &context)
{
    QStringList result;
    for (const Value &item : toItems(value))
        result.append(toText(item, context));
    return result;
}

/// Buttons are named by what is on them or by their number.
QString button(const Invocation &call, QStringView label, const QStringList &buttons,
               const TextContext &context)
{
    const Value value = call.argument(label);
    if (value.isNothing())
        return {};
    QString name = value.isNumber() ? buttons.value(toInteger(value) - 1) : toText(value, context);
    if (!buttons.contains(name))
        failToGet(label.toString() + u' ' + printed(value));
    return name;
}

DialogRequest::Icon icon(const QString &name)
{
    using enum DialogRequest::Icon;
    if (name == u"stop" || name == u"0" || name == u"critical")
        return stop;
    if (name == u"note" || name == u"1" || name == u"informational")
        return note;
    return name == u"caution" || name == u"2" || name == u"warning" ? caution : none;
}

/// What dialogs and alerts have in common.
DialogRequest request(const Invocation &call, const QStringList &usualButtons,
                      const TextContext &context)
{
    DialogRequest request;
    request.message = withLineFeeds(toText(call.direct, context));
    const Value buttons = call.argument(u"buttons");
    request.buttons = buttons.isNothing() ? usualButtons : texts(buttons, context);
    if (request.buttons.isEmpty() || request.buttons.size() > maxButtons)
        failWith(-50, u"A dialog has one to three buttons."_s);
    request.defaultButton = button(call, u"default button", request.buttons, context);
    request.cancelButton = button(call, u"cancel button", request.buttons, context);
    const Value seconds = call.argument(u"giving up after");
    if (!seconds.isNothing()) {
        constexpr double maxSeconds = 1e6;
        const double time = std::clamp(toReal(seconds), 0.0, maxSeconds);
        if (time > 0)
            request.givingUpAfter = std::chrono::milliseconds(std::llround(time * 1000));
    }
    return request;
}

/// The answer as a record; the cancel button is an error.
Value ask(const DialogRequest &request, Host &host)
{
    const std::optional<DialogAnswer> answer = host.dialogs.ask(request);
    if (!answer)
        fail(ScriptError::noUserInteraction, u"No user interaction allowed."_s);
    if (!answer->gaveUp && !request.cancelButton.isEmpty()
        && answer->button == request.cancelButton)
        fail(ScriptError::userCanceled, u"User canceled."_s);
    QList<Field> fields { { u"button returned"_s,
                            Value(answer->gaveUp ? QString() : answer->button) } };
    if (request.defaultAnswer)
        fields.append({ u"text returned"_s, Value(answer->text) });
    if (request.givingUpAfter)
        fields.append({ u"gave up"_s, Value(answer->gaveUp) });
    return Value::record(fields);
}

}

Value displayDialog(const Invocation &call, const TextContext &context, Host &host)
{
    const bool hasOwnButtons = !call.argument(u"buttons").isNothing();
    DialogRequest dialog = request(call, { u"Cancel"_s, u"OK"_s }, context);
    dialog.title = textArgument(call, u"with title", context);
    dialog.icon = icon(textArgument(call, u"with icon", context));
    dialog.hiddenAnswer = flagArgument(call, u"hidden answer");
    const Value answer = call.argument(u"default answer");
    if (!answer.isNothing())
        dialog.defaultAnswer = toText(answer, context);
    if (!hasOwnButtons && dialog.defaultButton.isEmpty())
        dialog.defaultButton = u"OK"_s;
    // A button called Cancel cancels unless another one does.
    if (dialog.cancelButton.isEmpty() && dialog.buttons.contains(u"Cancel"_s))
        dialog.cancelButton = u"Cancel"_s;
    return ask(dialog, host);
}

Value displayAlert(const Invocation &call, const TextContext &context, Host &host)
{
    DialogRequest alert = request(call, { u"OK"_s }, context);
    alert.detail = textArgument(call, u"message", context);
    alert.icon = icon(textArgument(call, u"as", context));
    if (alert.defaultButton.isEmpty())
        alert.defaultButton = alert.buttons.constLast();
    return ask(alert, host);
}

Value displayNotification(const Invocation &call, const TextContext &context, Host &host)
{
    check(host.dialogs.notify({ .text = withLineFeeds(toText(call.direct, context)),
                                .title = textArgument(call, u"with title", context),
                                .subtitle = textArgument(call, u"subtitle", context) }));
    return {};
}

Value chooseFromList(const Invocation &call, const TextContext &context, Host &host)
{
    ListRequest list;
    list.items = texts(call.direct, context);
    list.title = textArgument(call, u"with title", context);
    list.prompt = textArgument(call, u"with prompt", context);
    list.okButton = textArgument(call, u"OK button name", context);
    list.cancelButton = textArgument(call, u"cancel button name", context);
    list.multipleSelections = flagArgument(call, u"multiple selections allowed");
    list.emptySelection = flagArgument(call, u"empty selection allowed");
    const Value selected = call.argument(u"default items");
    if (!selected.isNothing())
        list.defaultItems = texts(selected, context);
    if (list.prompt.isEmpty())
        list.prompt = u"Please make your selection:"_s;
    if (list.okButton.isEmpty())
        list.okButton = u"OK"_s;
    if (list.cancelButton.isEmpty())
        list.cancelButton = u"Cancel"_s;
    const auto choice = host.dialogs.choose(list);
    if (!choice)
        fail(ScriptError::noUserInteraction, u"No user interaction allowed."_s);
    return *choice ? Value::texts(**choice) : Value(false);
}

}
