// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/values/Comparison.h"

#include "osascript/values/Coercion.h"
#include "osascript/values/Printer.h"
#include "osascript/values/ScriptError.h"
#include "osascript/values/StackLimit.h"
#include "osascript/values/TextElements.h"

#include <unicode/coll.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

bool isIgnored(QChar c, const ComparisonRules &rules)
{
    const bool isHyphen = c.category() == QChar::Punctuation_Dash;
    return (rules.ignoresHyphens && isHyphen) || (rules.ignoresWhiteSpace && c.isSpace())
        || (rules.ignoresPunctuation && !isHyphen && c.isPunct())
        || (rules.ignoresDiacriticals && c.isMark());
}

/// Texts that are equal under the rules have the same key.
QString keyOf(const QString &text, const ComparisonRules &rules)
{
    QString key = text.normalized(rules.ignoresDiacriticals ? QString::NormalizationForm_D
                                                            : QString::NormalizationForm_C);
    if (rules.ignoresCase)
        key = key.toCaseFolded();
    key.removeIf([&rules](QChar c) { return isIgnored(c, rules); });
    return key;
}

icu::UnicodeString unicodeString(const QString &text)
{
    return { reinterpret_cast<const char16_t *>(text.utf16()), static_cast<int32_t>(text.size()) };
}

/// By the root collation of the Unicode Collation Algorithm, so that é comes before f.
std::weak_ordering orderedTexts(const QString &left, const QString &right,
                                const ComparisonRules &rules)
{
    const QString leftKey = keyOf(left, rules);
    const QString rightKey = keyOf(right, rules);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> collator(
        icu::Collator::createInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status))
        return leftKey.compare(rightKey) <=> 0;
    collator->setAttribute(UCOL_NUMERIC_COLLATION, rules.comparesNumbers ? UCOL_ON : UCOL_OFF,
                           status);
    const auto order = collator->compare(unicodeString(leftKey), unicodeString(rightKey), status);
    return order == UCOL_EQUAL ? leftKey.compare(rightKey) <=> 0 : order <=> 0;
}

bool areEqualLists(const QList<Value> &left, const QList<Value> &right, const TextContext &context)
{
    return left.isSharedWith(right)
        || std::equal(left.cbegin(), left.cend(), right.cbegin(), right.cend(),
                      [&](const Value &a, const Value &b) { return areEqual(a, b, context); });
}

bool hasFields(const RecordPointer &record, const RecordPointer &fields, const TextContext &context)
{
    return std::all_of(fields->fields.cbegin(), fields->fields.cend(), [&](const Field &field) {
        const Value *own = record->find(field.name);
        return own && areEqual(*own, field.value, context);
    });
}

bool hasItems(const QList<Value> &list, const QList<Value> &part, Part where,
              const TextContext &context)
{
    const qsizetype last = list.size() - part.size();
    const auto isAt = [&](qsizetype at) {
        return std::equal(part.cbegin(), part.cend(), list.cbegin() + at,
                          [&](const Value &a, const Value &b) { return areEqual(b, a, context); });
    };
    if (last < 0)
        return false;
    if (where != Part::anywhere)
        return isAt(where == Part::start ? 0 : last);
    for (qsizetype at = 0; at <= last; ++at) {
        if (isAt(at))
            return true;
    }
    return false;
}

bool hasText(const QString &text, const QString &part, Part where)
{
    switch (where) {
    case Part::start:
        return text.startsWith(part);
    case Part::end:
        return text.endsWith(part);
    case Part::anywhere:
        break;
    }
    return text.contains(part);
}

}

bool areEqual(const Value &left, const Value &right, const TextContext &context)
{
    checkStack();
    if (left.isNumber() && right.isNumber())
        return toReal(left) == toReal(right);
    if (left.data().index() != right.data().index())
        return false;
    return std::visit(
        [&]<typename T>(const T &value) -> bool {
            const T &other = right.get<T>();
            if constexpr (std::is_same_v<T, QString>)
                return keyOf(value, context.rules) == keyOf(other, context.rules);
            else if constexpr (std::is_same_v<T, ListPointer>)
                return areEqualLists(value->items, other->items, context);
            else if constexpr (std::is_same_v<T, RecordPointer>)
                return value->fields.size() == other->fields.size()
                    && hasFields(value, other, context);
            else if constexpr (std::is_same_v<T, DatePointer>)
                return *value == *other;
            else if constexpr (std::is_same_v<T, Constant> || std::is_same_v<T, ClassName>)
                return value.name.compare(other.name, Qt::CaseInsensitive) == 0;
            else if constexpr (std::is_same_v<T, File>)
                return value.path == other.path;
            else if constexpr (std::is_same_v<T, Object>)
                return value.owner == other.owner && value.key == other.key
                    && value.className == other.className;
            else if constexpr (std::is_same_v<T, Handler>)
                return value.definition == other.definition && value.owner == other.owner;
            else if constexpr (std::is_same_v<T, Missing> || std::is_same_v<T, std::monostate>)
                return true;
            else
                return value == other;
        },
        left.data());
}

std::weak_ordering ordered(const Value &left, const Value &right, const TextContext &context)
{
    if (left.isNumber()) {
        const double a = toReal(left);
        const double b = toReal(right);
        return a < b ? std::weak_ordering::less
            : a > b  ? std::weak_ordering::greater
                     : std::weak_ordering::equivalent;
    }
    if (const auto *date = left.as<DatePointer>()) {
        const Value other = coerced(right, u"date"_s, context);
        return (*date)->toMSecsSinceEpoch() <=> (*other.get<DatePointer>()).toMSecsSinceEpoch();
    }
    if (left.isText())
        return orderedTexts(left.get<QString>(), toText(right, context), context.rules);
    failToCoerce(printed(left), u"number, text or date"_s);
}

bool hasPart(const Value &whole, const Value &part, Part where, const TextContext &context)
{
    if (whole.isText())
        return hasText(keyOf(whole.get<QString>(), context.rules),
                       keyOf(toText(part, context), context.rules), where);
    const auto *record = whole.as<RecordPointer>();
    const auto *fields = part.as<RecordPointer>();
    if (record && fields && where == Part::anywhere)
        return hasFields(*record, *fields, context);
    const QList<Value> items = part.isList() ? part.items() : QList<Value> { part };
    return hasItems(whole.isList() ? whole.items() : QList<Value> { whole }, items, where, context);
}

qsizetype offsetOf(const QString &part, const QString &text, const TextContext &context)
{
    const QString key = keyOf(part, context.rules);
    QString keys; // of the characters, whose keys can be of any length
    QList<qsizetype> starts;
    for (const TextRange &character : characterRanges(text, CrLf::two)) {
        starts.append(keys.size());
        keys += keyOf(text.sliced(character.start, character.length), context.rules);
    }
    for (qsizetype at = keys.indexOf(key); at >= 0 && !key.isEmpty();
         at = keys.indexOf(key, at + 1)) {
        const auto start = std::lower_bound(starts.cbegin(), starts.cend(), at);
        if (start != starts.cend() && *start == at)
            return start - starts.cbegin() + 1;
    }
    return 0;
}

}
