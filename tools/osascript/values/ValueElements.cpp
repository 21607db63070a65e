// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/ValueElements.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/TextItemDelimiters.h"

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

bool isOfClass(const Value &value, const QString &className)
{
    return className == classOf(value) || (className == u"number" && value.isNumber());
}

QList<Value> itemsOfClass(const QList<Value> &items, const QString &className)
{
    if (className == u"item")
        return items;
    QList<Value> matching;
    std::copy_if(items.cbegin(), items.cend(), std::back_inserter(matching),
                 [&](const Value &item) { return isOfClass(item, className); });
    return matching;
}

std::optional<QList<TextRange>> textRanges(const QString &text, const QString &className,
                                           const TextContext &context)
{
    if (className == u"character" || className == u"item" || className == u"text")
        return characterRanges(text, CrLf::two);
    if (className == u"word")
        return wordRanges(text);
    if (className == u"paragraph")
        return paragraphRanges(text);
    if (className == u"text item")
        return textItemRanges(text, context);
    return std::nullopt;
}

}

ValueElements::ValueElements(Value container, QString className, const TextContext &context)
    : m_container(std::move(container))
    , m_className(std::move(className))
{
    if (m_container.isList()) {
        m_items = itemsOfClass(m_container.items(), m_className);
        return;
    }
    const auto ranges = m_container.isText()
        ? textRanges(m_container.get<QString>(), m_className, context)
        : std::nullopt;
    if (!ranges)
        failToGet(u"every "_s + m_className + u" of "_s + printed(m_container));
    m_ranges = *ranges;
}

qsizetype ValueElements::count() const
{
    return m_container.isText() ? m_ranges.size() : m_items.size();
}

Value ValueElements::element(qsizetype position) const
{
    if (!m_container.isText())
        return m_items.at(position);
    const TextRange range = m_ranges.at(position);
    return Value(m_container.get<QString>().sliced(range.start, range.length));
}

/// -1 when there is none.
qsizetype ValueElements::position(qint64 index) const
{
    const qsizetype size = count();
    const qsizetype at = index < 0 ? size + index : index - 1;
    return index != 0 && at >= 0 && at < size ? at : -1;
}

QList<Value> ValueElements::all() const
{
    if (!m_container.isText())
        return m_items;
    QList<Value> values;
    values.reserve(count());
    checkListSize(count());
    for (qsizetype i = 0; i < count(); ++i)
        values.append(element(i));
    return values;
}

Value ValueElements::at(qint64 index) const
{
    const qsizetype at = position(index);
    if (at < 0)
        failToGet(u"%1 %2 of "_s.arg(m_className).arg(index) + printed(m_container));
    return element(at);
}

Value ValueElements::range(qint64 first, qint64 last) const
{
    const auto [from, to] = std::minmax({ position(first), position(last) });
    if (from < 0)
        failToGet(u"%1s %2 thru %3 of "_s.arg(m_className).arg(first).arg(last)
                  + printed(m_container));
    if (m_container.isText() && m_className == u"text")
        return textBetween(m_container.get<QString>(), m_ranges.at(from), m_ranges.at(to));
    return Value::list(all().mid(from, to - from + 1));
}

TextRange ValueElements::rangeAt(qint64 index) const
{
    const qsizetype at = position(index);
    if (at < 0)
        failToGet(u"%1 %2 of "_s.arg(m_className).arg(index) + printed(m_container));
    return m_ranges.at(at);
}

Value elementAt(const Value &container, const QString &className, qint64 index,
                const TextContext &context)
{
    const bool isCharacter
        = container.isText() && (className == u"character" || className == u"item");
    const auto range
        = isCharacter ? characterRangeAt(container.get<QString>(), index) : std::nullopt;
    return range ? Value(container.get<QString>().sliced(range->start, range->length))
                 : ValueElements(container, className, context).at(index);
}

Value textBetween(const QString &text, TextRange first, TextRange last)
{
    if (last.start < first.start)
        std::swap(first, last);
    const qsizetype end = std::max(first.start + first.length, last.start + last.length);
    return Value(text.sliced(first.start, end - first.start));
}

}
