// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/RecordingHost.h"

#include "osascript/values/Printer.h"

#include <cstdio>

using namespace Tessel;
using namespace Qt::StringLiterals;
using namespace Tessel::Osascript;

namespace {

/// The name of the call and what it was given that is not empty; texts are quoted.
void record(const QString &call, const QStringList &parts)
{
    QString line = u"» "_s + call;
    for (const QString &part : parts)
        line += part.isEmpty() ? QString() : u' ' + part;
    std::fputs((line + u'\n').toUtf8().constData(), stderr);
}

Result<void> recorded(const QString &call, const QStringList &parts)
{
    record(call, parts);
    return {};
}

QString text(const QString &label, const QString &value)
{
    const QString escaped
        = quoted(value).replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s).replace(u'\t', u"\\t"_s);
    return value.isEmpty() ? QString() : label + escaped;
}

QString names(Modifiers modifiers)
{
    QStringList names;
    if (modifiers.command)
        names.append(u"command"_s);
    if (modifiers.control)
        names.append(u"control"_s);
    if (modifiers.option)
        names.append(u"option"_s);
    if (modifiers.shift)
        names.append(u"shift"_s);
    return names.join(u'+');
}

QString flag(bool isSet, const QString &name)
{
    return isSet ? name : QString();
}

}

RecordingHost::RecordingHost()
    : m_answer(qEnvironmentVariable("OSASCRIPT_ANSWER"))
{
    if (qEnvironmentVariableIsSet("OSASCRIPT_CLIPBOARD"))
        m_clipboard = qEnvironmentVariable("OSASCRIPT_CLIPBOARD");
}

std::optional<QString> RecordingHost::text()
{
    return m_clipboard;
}

Result<void> RecordingHost::setText(const QString &text)
{
    m_clipboard = text;
    return recorded(u"copy"_s, { ::text({}, text) });
}

Result<void> RecordingHost::type(const QString &text, Modifiers modifiers)
{
    return recorded(u"type"_s, { ::text({}, text), ::names(modifiers) });
}

Result<void> RecordingHost::press(int keyCode, Modifiers modifiers)
{
    return recorded(u"press"_s, { QString::number(keyCode), ::names(modifiers) });
}

std::optional<DialogAnswer> RecordingHost::ask(const DialogRequest &request)
{
    static constexpr QStringView icons[] { u"", u"note", u"caution", u"stop" };
    record(u"ask"_s,
           { ::text({}, request.message), ::text(u"detail "_s, request.detail),
             ::text(u"title "_s, request.title), u'[' + request.buttons.join(u'|') + u']',
             ::text(u"default "_s, request.defaultButton),
             ::text(u"cancel "_s, request.cancelButton),
             ::text(u"answer "_s, request.defaultAnswer.value_or(QString())),
             flag(request.hiddenAnswer, u"hidden"_s),
             icons[static_cast<size_t>(request.icon)].toString(),
             request.givingUpAfter ? u"%1 ms"_s.arg(request.givingUpAfter->count()) : QString() });
    if (m_answer == u"(none)")
        return {};
    const bool gaveUp = m_answer == u"(gives up)";
    const QString button = m_answer.isEmpty() ? request.defaultButton : m_answer;
    return DialogAnswer { button, request.defaultAnswer.value_or(QString()), gaveUp };
}

std::optional<std::optional<QStringList>> RecordingHost::choose(const ListRequest &request)
{
    record(u"choose"_s,
           { u'[' + request.items.join(u'|') + u']', ::text(u"title "_s, request.title),
             ::text(u"prompt "_s, request.prompt),
             ::text(u"default "_s, request.defaultItems.join(u'|')),
             ::text(u"ok "_s, request.okButton), ::text(u"cancel "_s, request.cancelButton),
             flag(request.multipleSelections, u"several"_s),
             flag(request.emptySelection, u"none"_s) });
    if (m_answer == u"Cancel")
        return std::optional<QStringList>();
    return m_answer.isEmpty() ? request.items.mid(0, 1) : m_answer.split(u'|');
}

Result<void> RecordingHost::notify(const DesktopNotification &notification)
{
    return recorded(u"notify"_s,
                    { ::text({}, notification.text), ::text(u"title "_s, notification.title),
                      ::text(u"subtitle "_s, notification.subtitle),
                      ::text(u"file "_s, notification.file) });
}

void RecordingHost::beep()
{
    record(u"beep"_s, {});
}

Result<void> RecordingHost::say(const QString &text)
{
    return recorded(u"say"_s, { ::text({}, text) });
}

QList<Process> RecordingHost::processes()
{
    return {
        { u"Text Editor"_s, u"org.example.editor"_s, 101, true, true },
        { u"Terminal"_s, u"org.example.terminal"_s, 102, false, true },
        { u"Files"_s, u"org.example.files"_s, 0, false, false },
    };
}

bool RecordingHost::isInstalled(const QString &application)
{
    static const QStringList installed { u"text editor"_s, u"terminal"_s, u"files"_s,
                                         u"firefox"_s };
    return installed.contains(application.toLower());
}

bool RecordingHost::isRunning(const QString &application)
{
    return isInstalled(application) && application.compare(u"Firefox", Qt::CaseInsensitive) != 0;
}

Result<void> RecordingHost::activate(const QString &application)
{
    return recorded(u"activate"_s, { ::text({}, application) });
}

Result<void> RecordingHost::launch(const QString &application)
{
    return recorded(u"launch"_s, { ::text({}, application) });
}

Result<void> RecordingHost::quit(const QString &application)
{
    return recorded(u"quit"_s, { ::text({}, application) });
}

Result<void> RecordingHost::open(const QString &target, const QString &application)
{
    return recorded(u"open"_s, { ::text({}, target), ::text(u"with "_s, application) });
}

Result<QString> RecordingHost::openAs(const QString &path, const QString &mimeType)
{
    record(u"open"_s, { ::text({}, path), ::text(u"as "_s, mimeType) });
    return u"Agenda"_s;
}

Result<void> RecordingHost::reveal(const QString &path)
{
    return recorded(u"reveal"_s, { ::text({}, path) });
}

QStringList RecordingHost::names()
{
    return { u"Broken"_s, u"Count Words"_s, u"Silent"_s, u"일정 추가"_s };
}

Result<QString> RecordingHost::run(const QString &name, const QString &input)
{
    record(u"shortcut"_s, { ::text({}, name), ::text(u"input "_s, input) });
    if (name == u"Broken")
        return Failure { u"The shortcut failed"_s };
    return name == u"Silent" ? QString() : u'<' + input + u'>';
}
