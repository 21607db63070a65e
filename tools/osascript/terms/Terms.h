// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <span>

/// What the language knows by name. The parser accepts what stands in these tables and nothing
/// else, and docs/applescript.md is made from them.
namespace Tessel::Osascript {

/// Where a term is known.
enum class Suite {
    language,
    additions, ///< everywhere, like the language
    application, ///< everywhere: what every application understands
    systemEvents, ///< this one and the rest: inside `tell application` of that name
    notes,
    shortcuts,
    finder,
    calendar,
    reminders,
    mail,
};

enum class Keyword {
    considering,
    copy,
    end,
    error,
    exit,
    get,
    global,
    ifThen,
    ignoring,
    local,
    on,
    property,
    repeat,
    returns,
    script,
    set,
    tell,
    to,
    tries,
    use,
    usingTerms,
    withTimeout,
};

struct StatementTerm
{
    QStringView words; ///< the statement starts with them
    Keyword keyword;
    QStringView form;
    QStringView help;
};

enum class Operation {
    power,
    multiply,
    divide,
    integerDivide,
    modulo,
    add,
    subtract,
    concatenate,
    coerce,
    less,
    lessOrEqual,
    greater,
    greaterOrEqual,
    equal,
    notEqual,
    contains,
    containsNot,
    isIn,
    isNotIn,
    startsWith,
    endsWith,
    isRunning, ///< this one and the next stand after their only operand
    isNotRunning,
    conjunction,
    disjunction,
};

struct OperatorTerm
{
    QStringView words; ///< words or one symbol
    Operation operation;
};

struct NameTerm
{
    enum class Kind {
        property,
        element, ///< a class of which there are elements
        type, ///< a class that values have or are made into
        constant,
    };

    QStringView words;
    Kind kind;
    Suite suite;
    QStringView help;
    QStringView plural = {}; ///< of an element
    QStringView meaning = {}; ///< the class that this is another word for

    [[nodiscard]] constexpr QStringView canonical() const
    {
        return meaning.isEmpty() ? words : meaning;
    }
};

struct ParameterTerm
{
    enum class Kind {
        value,
        flag, ///< `with label`, `without label`, or `label true`
        choice, ///< one of the choices
        className,
        place, ///< `end of list`, or a value
    };

    QStringView label;
    QStringView help;
    Kind kind = Kind::value;
    QStringView choices = {}; ///< divided by bars
};

enum class Direct {
    none,
    optional,
    required,
    operand, ///< required, and takes no operators: `count x + 1` is `(count x) + 1`
};

struct CommandTerm
{
    QStringView words;
    Suite suite;
    Direct direct; ///< the value right after the words
    std::span<const ParameterTerm> parameters;
    QStringView help;
    QStringView choices = {}; ///< what the direct value is one of, divided by bars
};

[[nodiscard]] std::span<const StatementTerm> statementTerms();
[[nodiscard]] std::span<const OperatorTerm> operatorTerms();
[[nodiscard]] std::span<const NameTerm> nameTerms();
[[nodiscard]] std::span<const CommandTerm> commandTerms();
/// Words that no variable can be called.
[[nodiscard]] std::span<const QStringView> reservedWords();
/// The words before parameters of handlers.
[[nodiscard]] std::span<const QStringView> handlerLabels();

/// An application's name without the path and the ".app" that it can be written with.
[[nodiscard]] QStringView bareName(QStringView application);

/// The suite that opens with the name or the identifier of an application.
[[nodiscard]] Suite suiteOf(QStringView application);

}
