// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/applications/Mail.h"

#include "base/TextRules.h"
#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

QString encoded(const QString &text)
{
    return QString::fromLatin1(QUrl::toPercentEncoding(text));
}

/// Header fields are one line each (RFC 6068, section 5).
QString inOneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; },
        u' ');
    return text;
}

/// Commas divide addresses, so they and all else but "@" are encoded within one.
QString encodedAddresses(const QStringList &addresses)
{
    QStringList parts;
    for (const QString &address : addresses)
        parts.append(QString::fromLatin1(QUrl::toPercentEncoding(inOneLine(address), "@")));
    return parts.join(u',');
}

/// RFC 6068: line breaks are CR LF.
QString withLineBreaks(const QString &text)
{
    return withNormalizedLineEnds(text).replace(u'\n', u"\r\n"_s);
}

}

Mail::Mail(Host &host)
    : Application(u"Mail"_s, host)
{
}

Mail::Message &Mail::messageOf(const Value &value)
{
    const auto *object = value.as<Object>();
    const qsizetype number
        = object && object->className == u"outgoing message" ? object->key.toLongLong() : 0;
    if (number < 1 || number > m_messages.size())
        failToGet(u"outgoing message of "_s + printed(value));
    return m_messages[number - 1];
}

QList<Object> Mail::elements(const Object &container, const QString &className)
{
    if (className != u"outgoing message")
        return Application::elements(container, className);
    QList<Object> objects;
    for (qsizetype i = 1; i <= m_messages.size(); ++i)
        objects.append(element(className, QString::number(i)));
    return objects;
}

Value Mail::property(const Object &object, const QString &name)
{
    if (object.className != u"outgoing message")
        return Application::property(object, name);
    const Message &message = messageOf(Value(object));
    if (name == u"subject")
        return Value(message.subject);
    return name == u"content" ? Value(message.content) : Application::property(object, name);
}

bool Mail::setProperty(const Object &object, const QString &name, const Value &value)
{
    if (object.className != u"outgoing message")
        return false;
    Message &message = messageOf(Value(object));
    if (name == u"subject")
        message.subject = toText(value, {});
    else if (name == u"content")
        message.content = toText(value, {});
    else
        return name == u"visible" || name == u"sender";
    return true;
}

Value Mail::make(const Invocation &invocation)
{
    const Value newClass = invocation.argument(u"new");
    const auto *kind = newClass.as<ClassName>();
    const QString className = kind ? kind->name : QString();
    if (className.endsWith(u"recipient"_s))
        return addRecipient(invocation, className);
    if (className != u"outgoing message")
        failNotUnderstanding(invocation);
    m_messages.append(Message());
    const Object object = element(className, QString::number(m_messages.size()));
    const Value properties = invocation.argument(u"with properties");
    if (const auto *record = properties.as<RecordPointer>()) {
        for (const Field &field : (*record)->fields) {
            if (!setProperty(object, field.name, field.value))
                failWith(-10000, u"Can’t set "_s + field.name + u'.');
        }
    }
    return Value(object);
}

Value Mail::addRecipient(const Invocation &invocation, const QString &className)
{
    const Value properties = invocation.argument(u"with properties");
    const auto *record = properties.as<RecordPointer>();
    const Value *address = record ? (*record)->find(u"address") : nullptr;
    if (!address)
        fail(ScriptError::missingParameter, u"The recipient has no address."_s);
    Message &message = messageOf(invocation.target);
    QStringList &recipients = className == u"to recipient" ? message.to
        : className == u"cc recipient"                     ? message.cc
                                                           : message.bcc;
    recipients.append(toText(*address, {}));
    return Value(element(className, recipients.constLast()));
}

QString Mail::address(const Message &message)
{
    QStringList fields;
    const auto add = [&](const QString &name, const QString &value) {
        if (!value.isEmpty())
            fields.append(name + u'=' + value);
    };
    add(u"cc"_s, encodedAddresses(message.cc));
    add(u"bcc"_s, encodedAddresses(message.bcc));
    add(u"subject"_s, encoded(inOneLine(message.subject)));
    add(u"body"_s, encoded(withLineBreaks(message.content)));
    const QString query = fields.isEmpty() ? QString() : u'?' + fields.join(u'&');
    return u"mailto:"_s + encodedAddresses(message.to) + query;
}

void Mail::show(Message &message)
{
    if (std::exchange(message.isShown, true))
        return;
    check(host().desktop.open(address(message), {}));
}

Value Mail::perform(const Invocation &invocation)
{
    if (invocation.is(u"make"))
        return make(invocation);
    if (!invocation.is(u"send"))
        return Application::perform(invocation);
    show(messageOf(invocation.direct));
    return Value(true);
}

void Mail::finish()
{
    for (Message &message : m_messages)
        show(message);
}

}
