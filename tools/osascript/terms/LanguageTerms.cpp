// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/terms/Terms.h"

namespace Tessel::Osascript {

namespace {

using enum Operation;

constexpr StatementTerm statements[] {
    { u"considering", Keyword::considering, u"considering case … end considering",
      u"Compares with regard to case, diacriticals, white space, punctuation, hyphens or numeric "
      u"strings. “but ignoring …” may follow." },
    { u"copy", Keyword::copy, u"copy value to variable",
      u"Assigns a copy, of the items of a list, too." },
    { u"end", Keyword::end, u"end", u"Ends a block; the block’s name may follow." },
    { u"error", Keyword::error, u"error text number n", u"Raises an error." },
    { u"exit", Keyword::exit, u"exit repeat", u"Leaves the innermost loop." },
    { u"get", Keyword::get, u"get value", u"Evaluates." },
    { u"global", Keyword::global, u"global name, …", u"Declares variables of the whole script." },
    { u"if", Keyword::ifThen, u"if test then … else if test then … else … end if",
      u"In one line without “end if”." },
    { u"ignoring", Keyword::ignoring, u"ignoring case … end ignoring",
      u"The opposite of considering. “but considering …” may follow. “application responses” has "
      u"no effect." },
    { u"local", Keyword::local, u"local name, …", u"Declares variables of the handler." },
    { u"on", Keyword::on, u"on name(a, {b, c}) … end name",
      u"Defines a handler. Parameters are positional, labelled (“on name of x from y given z:v”) "
      u"or interleaved (“on name:x with:y”). “on run argv” takes the arguments." },
    { u"property", Keyword::property, u"property name : value", u"A variable of the script." },
    { u"repeat", Keyword::repeat, u"repeat … end repeat",
      u"Forms: repeat; n times; while test; until test; with i from a to b by c; with x in list." },
    { u"return", Keyword::returns, u"return value", u"Leaves the handler." },
    { u"script", Keyword::script, u"script name … end script",
      u"A script object with properties and handlers. It has no parent." },
    { u"set", Keyword::set, u"set variable to value",
      u"Assigns to a variable, a property, an element, or a pattern such as {a, b}. Lists, records "
      u"and dates stay shared." },
    { u"tell", Keyword::tell, u"tell value … end tell",
      u"In one line with “to”. The terms of an application are known inside." },
    { u"to", Keyword::to, u"to name(a, b) … end name", u"The same as “on”." },
    { u"try", Keyword::tries, u"try … on error message number n … end try", u"Catches errors." },
    { u"use", Keyword::use, u"use scripting additions",
      u"Also “use AppleScript version "
      u"…” and “use application …”; no effect." },
    { u"using terms from", Keyword::usingTerms,
      u"using terms from application … end using terms "
      u"from",
      u"Knows the terms of an application without telling it anything." },
    { u"with timeout", Keyword::withTimeout, u"with timeout of n seconds … end timeout",
      u"Runs the block; nothing here times out." },
};

constexpr OperatorTerm operators[] {
    { u"^", power },
    { u"*", multiply },
    { u"/", divide },
    { u"div", integerDivide },
    { u"mod", modulo },
    { u"+", add },
    { u"-", subtract },
    { u"&", concatenate },
    { u"as", coerce },
    { u"<", less },
    { u"comes before", less },
    { u"is less than", less },
    { u"less than", less },
    { u"is not greater than or equal", less },
    { u"is not greater than or equal to", less },
    { u"isn't greater than or equal", less },
    { u"isn't greater than or equal to", less },
    { u"<=", lessOrEqual },
    { u"is less than or equal", lessOrEqual },
    { u"is less than or equal to", lessOrEqual },
    { u"less than or equal", lessOrEqual },
    { u"less than or equal to", lessOrEqual },
    { u"is not greater than", lessOrEqual },
    { u"isn't greater than", lessOrEqual },
    { u"does not come after", lessOrEqual },
    { u"doesn't come after", lessOrEqual },
    { u">", greater },
    { u"comes after", greater },
    { u"is greater than", greater },
    { u"greater than", greater },
    { u"is not less than or equal", greater },
    { u"is not less than or equal to", greater },
    { u"isn't less than or equal", greater },
    { u"isn't less than or equal to", greater },
    { u">=", greaterOrEqual },
    { u"is greater than or equal", greaterOrEqual },
    { u"is greater than or equal to", greaterOrEqual },
    { u"greater than or equal", greaterOrEqual },
    { u"greater than or equal to", greaterOrEqual },
    { u"is not less than", greaterOrEqual },
    { u"isn't less than", greaterOrEqual },
    { u"does not come before", greaterOrEqual },
    { u"doesn't come before", greaterOrEqual },
    { u"=", equal },
    { u"is", equal },
    { u"is equal", equal },
    { u"is equal to", equal },
    { u"equal", equal },
    { u"equal to", equal },
    { u"equals", equal },
    { u"/=", notEqual },
    { u"is not", notEqual },
    { u"isn't", notEqual },
    { u"is not equal", notEqual },
    { u"is not equal to", notEqual },
    { u"isn't equal", notEqual },
    { u"isn't equal to", notEqual },
    { u"does not equal", notEqual },
    { u"doesn't equal", notEqual },
    { u"contains", contains },
    { u"contain", contains },
    { u"does not contain", containsNot },
    { u"doesn't contain", containsNot },
    { u"is in", isIn },
    { u"is contained by", isIn },
    { u"is not in", isNotIn },
    { u"isn't in", isNotIn },
    { u"is not contained by", isNotIn },
    { u"isn't contained by", isNotIn },
    { u"starts with", startsWith },
    { u"start with", startsWith },
    { u"begins with", startsWith },
    { u"begin with", startsWith },
    { u"ends with", endsWith },
    { u"end with", endsWith },
    { u"is running", isRunning },
    { u"is not running", isNotRunning },
    { u"isn't running", isNotRunning },
    { u"and", conjunction },
    { u"or", disjunction },
};

constexpr QStringView reserved[] {
    u"about",   u"above",   u"after",       u"against",  u"and",      u"around",      u"as",
    u"at",      u"before",  u"behind",      u"below",    u"beneath",  u"beside",      u"between",
    u"but",     u"by",      u"considering", u"contain",  u"contains", u"continue",    u"copy",
    u"div",     u"does",    u"doesn't",     u"else",     u"end",      u"equal",       u"equals",
    u"error",   u"every",   u"exit",        u"false",    u"first",    u"for",         u"from",
    u"get",     u"given",   u"global",      u"if",       u"ignoring", u"in",          u"into",
    u"is",      u"isn't",   u"it",          u"its",      u"last",     u"local",       u"me",
    u"middle",  u"mod",     u"my",          u"not",      u"of",       u"on",          u"onto",
    u"or",      u"over",    u"parent",      u"property", u"repeat",   u"return",      u"script",
    u"set",     u"since",   u"some",        u"tell",     u"that",     u"the",         u"then",
    u"through", u"thru",    u"timeout",     u"times",    u"to",       u"transaction", u"true",
    u"try",     u"under",   u"until",       u"using",    u"where",    u"while",       u"whose",
    u"with",    u"without",
};

constexpr QStringView labels[] {
    u"about",  u"above", u"against",    u"apart from", u"around",  u"aside from",
    u"at",     u"below", u"beneath",    u"beside",     u"between", u"by",
    u"for",    u"from",  u"instead of", u"into",       u"on",      u"onto",
    u"out of", u"over",  u"since",      u"thru",       u"through", u"under",
};

}

std::span<const StatementTerm> statementTerms()
{
    return statements;
}

std::span<const OperatorTerm> operatorTerms()
{
    return operators;
}

std::span<const QStringView> reservedWords()
{
    return reserved;
}

std::span<const QStringView> handlerLabels()
{
    return labels;
}

}
