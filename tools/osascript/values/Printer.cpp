// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/Printer.h"

#include "osascript/terms/Terms.h"
#include "osascript/values/DateValue.h"
#include "osascript/values/NumberFormat.h"
#include "osascript/values/ObjectOwner.h"
#include "osascript/values/ScriptObject.h"
#include "osascript/values/StackLimit.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

class Printer final
{
public:
    explicit Printer(PrintStyle style)
        : m_isSource(style == PrintStyle::source)
    {
    }

    void print(const Value &value)
    {
        checkStack();
        checkTextSize(m_text.size());
        std::visit(*this, value.data());
    }

    void operator()(std::monostate /*nothing*/) { }
    void operator()(Missing /*value*/) { m_text += u"missing value"; }
    void operator()(bool value) { m_text += value ? u"true" : u"false"; }
    void operator()(qint64 value) { m_text += QString::number(value); }
    void operator()(double value) { m_text += formatReal(value); }
    void operator()(const QString &value) { printText(value); }
    void operator()(const ListPointer &list);
    void operator()(const RecordPointer &record);
    void operator()(const DatePointer &date) { printNamed(u"date", formatDate(*date)); }
    void operator()(const Constant &constant) { m_text += constant.name; }
    void operator()(const ClassName &name) { m_text += name.name; }
    void operator()(const File &file)
    {
        printNamed(file.isAlias ? u"alias" : u"POSIX file", file.path);
    }
    void operator()(const Object &object);
    void operator()(const ReferencePointer & /*reference*/) { m_text += u"«reference»"; }
    void operator()(const ScriptObject *script);
    void operator()(const Handler &handler);

    [[nodiscard]] QString text() const { return m_text; }

private:
    void printText(const QString &text) { m_text += m_isSource ? quoted(text) : text; }
    void printNamed(QStringView kind, const QString &name)
    {
        m_text += kind;
        m_text += u' ';
        printText(name);
    }

    bool m_isSource;
    QString m_text;
};

void Printer::operator()(const ListPointer &list)
{
    m_text += m_isSource ? u"{" : u"";
    for (qsizetype i = 0; i < list->items.size(); ++i) {
        m_text += i > 0 ? u", " : u"";
        print(list->items.at(i));
    }
    m_text += m_isSource ? u"}" : u"";
}

bool isProperty(const QString &name)
{
    const std::span<const NameTerm> terms = nameTerms();
    return std::any_of(terms.begin(), terms.end(), [&](const NameTerm &term) {
        return term.kind == NameTerm::Kind::property
            && term.words.compare(name, Qt::CaseInsensitive) == 0;
    });
}

/// A name that scripts cannot have as it is stands between bars.
QString fieldName(const QString &name)
{
    static const QRegularExpression word(u"\\A[\\p{L}_][\\p{L}\\p{N}_]*\\z"_s);
    const std::span<const QStringView> reserved = reservedWords();
    const bool isReserved = std::any_of(reserved.begin(), reserved.end(), [&](QStringView known) {
        return known.compare(name, Qt::CaseInsensitive) == 0;
    });
    const bool isPlain = isProperty(name) || (word.match(name).hasMatch() && !isReserved);
    return isPlain ? name : u'|' + name + u'|';
}

void Printer::operator()(const RecordPointer &record)
{
    m_text += m_isSource ? u"{" : u"";
    for (qsizetype i = 0; i < record->fields.size(); ++i) {
        m_text += i > 0 ? u", " : u"";
        m_text += fieldName(record->fields.at(i).name) + u':';
        print(record->fields.at(i).value);
    }
    m_text += m_isSource ? u"}" : u"";
}

void Printer::operator()(const Object &object)
{
    if (object.className != u"application") {
        printNamed(object.className, object.owner->nameOf(object));
        m_text += u" of ";
    }
    printNamed(u"application", object.owner->name());
}

void Printer::operator()(const ScriptObject *script)
{
    m_text += script->name.isEmpty() ? u"«script»"_s : u"«script "_s + script->name + u'»';
}

void Printer::operator()(const Handler &handler)
{
    m_text += u"«handler "_s + handler.name + u'»';
}

}

QString printed(const Value &value, PrintStyle style)
{
    Printer printer(style);
    printer.print(value);
    return printer.text();
}

QString quoted(const QString &text)
{
    QString escaped = text;
    escaped.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    return u'"' + escaped + u'"';
}

}
