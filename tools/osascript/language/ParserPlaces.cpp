// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/Parser.h"

#include "osascript/values/Constants.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace Tessel::Osascript {

namespace {

using Form = ElementExpression::Form;

constexpr QStringView ordinals[] { u"first", u"second",  u"third",  u"fourth", u"fifth",
                                   u"sixth", u"seventh", u"eighth", u"ninth",  u"tenth" };

bool isSelection(const ElementExpression &element)
{
    return element.form == Form::every || element.form == Form::some || element.form == Form::middle
        || (element.form == Form::index && !element.filter);
}

}

/// `x`, `name`, `word 1`, `foo(1)`, `every item`, and then `of` what.
ExpressionPointer Parser::readPlace()
{
    const qsizetype from = m_at;
    ExpressionPointer place = readPronoun();
    if (place)
        return place;
    place = readPart();
    readFilter(*place);
    const bool takesContainer = !std::holds_alternative<Literal>(place->form)
        && !std::holds_alternative<CommandExpression>(place->form);
    if (takesContainer && isBeforeContainer()) {
        ++m_at;
        place = within(std::move(place), readContainer(), from);
        readFilter(*place);
    }
    return place;
}

bool Parser::isBeforeContainer() const
{
    return (m_allowed.of && isAt(u"of")) || (m_allowed.in && isAt(u"in"));
}

ExpressionPointer Parser::readContainer()
{
    const QScopedValueRollback deeper(m_depth, m_depth + 1);
    countOperator();
    if (m_depth > maxNesting)
        failSyntax(u"The expression is nested too deeply."_s);
    return readPostfixed();
}

ExpressionPointer Parser::within(ExpressionPointer part, ExpressionPointer container,
                                 qsizetype from) const
{
    if (auto *property = std::get_if<PropertyExpression>(&part->form))
        property->container = std::move(container);
    else if (auto *element = std::get_if<ElementExpression>(&part->form))
        element->container = std::move(container);
    else if (auto *call = std::get_if<CallExpression>(&part->form))
        call->target = std::move(container);
    else if (auto *variable = std::get_if<Variable>(&part->form))
        return make(PropertyExpression { variable->name, std::move(container) }, from);
    else
        failExpecting(u"end of line, etc."_s);
    part->where = since(from);
    return part;
}

/// `whose test`, which picks among the elements that were just read.
void Parser::readFilter(Expression &place)
{
    auto *element = std::get_if<ElementExpression>(&place.form);
    if (!element || !isSelection(*element) || !(isAt(u"whose") || isAt(u"where")))
        return;
    const bool isNumbered = element->key && std::holds_alternative<Literal>(element->key->form);
    if (element->form == Form::index && !isNumbered)
        return;
    ++m_at;
    const QScopedValueRollback allowed(m_allowed, {});
    element->filter = readExpression();
}

/// `it`, `me`, and what is `its` or `my`.
ExpressionPointer Parser::readPronoun()
{
    const qsizetype from = m_at;
    using Kind = Pronoun::Kind;
    if (accept(u"it"))
        return make(Pronoun { Kind::it }, from);
    if (accept(u"me"))
        return make(Pronoun { Kind::me }, from);
    if (!isAt(u"its") && !isAt(u"my"))
        return nullptr;
    const Kind kind = isAt(u"its") ? Kind::it : Kind::me;
    ++m_at;
    ExpressionPointer owner = make(Pronoun { kind }, from);
    ExpressionPointer part = readPart();
    if (!isBeforeContainer())
        return within(std::move(part), std::move(owner), from);
    // "my x of y" is "x of y": what is asked for there is found in y.
    ++m_at;
    return within(std::move(part), readContainer(), from);
}

/// What can have a container, without it.
ExpressionPointer Parser::readPart()
{
    const qsizetype from = m_at;
    skipArticle();
    if (ExpressionPointer element = readOrdinal())
        return element;
    const Vocabulary::Match match = matchTerm();
    const bool isCalled = peek().kind == Token::Kind::name || match.length == 0;
    if (!isCalled)
        return readTerm(match);
    if (!isIdentifier())
        failExpecting(u"expression"_s);
    const QString name = readIdentifier();
    ExpressionPointer call = readCall(name, from);
    return call ? std::move(call) : make(Variable { name }, from);
}

/// Of the meanings that the words have, the one that fits what follows.
ExpressionPointer Parser::readTerm(const Vocabulary::Match &match)
{
    const qsizetype from = m_at;
    if (match.command)
        return readCommand(*match.command, match.length);
    m_at += match.length;
    const auto property = match.name(NameTerm::Kind::property);
    const auto constant = match.name(NameTerm::Kind::constant);
    static constexpr QStringView owners[] { u"'s", u"its", u"my" };
    const bool hasOwner
        = from > 0 && std::any_of(std::begin(owners), std::end(owners), [&](QStringView owner) {
              return matchWords(owner, m_tokens, from - 1) > 0;
          });
    const bool isPossessed = hasOwner || isBeforeContainer();
    if (property && (isPossessed || !constant))
        return make(PropertyExpression { property->term->words.toString(), nullptr }, from);
    if (constant)
        return make(Literal { constantValue(constant->term->words) }, from);
    if (const auto name = match.name(NameTerm::Kind::element))
        return readElement(*name, isPossessed, from);
    return make(
        Literal { Value(ClassName { match.names.constFirst().term->canonical().toString() }) },
        from);
}

/// `first word`, `3rd item`, `last character`, `every note`, `some item`, `end`.
ExpressionPointer Parser::readOrdinal()
{
    const qsizetype from = m_at;
    const auto number = [&](qint64 index) { return make(Literal { Value(index) }, from); };
    ElementExpression element { .form = Form::index };
    if (peek().kind == Token::Kind::integer && peek(1).text == u"th") {
        element.key = number(peek().text.toLongLong());
        m_at += 2;
        return readClass(std::move(element), from);
    }
    const bool isInsertion = (isAt(u"end") || isAt(u"beginning"));
    if (isInsertion) {
        element.form = Form::insertion;
        element.key = number(isAt(u"end") ? -1 : 1);
        ++m_at;
        return make(std::move(element), from);
    }
    if (accept(u"every")) {
        element.form = Form::every;
    } else if (accept(u"some")) {
        element.form = Form::some;
    } else if (accept(u"middle")) {
        element.form = Form::middle;
    } else if (accept(u"last") || accept(u"back")) {
        element.key = number(-1);
    } else {
        const auto *ordinal = std::find_if(std::begin(ordinals), std::end(ordinals),
                                           [this](QStringView word) { return isAt(word); });
        const bool isBeforeClass = m_vocabulary.match(m_tokens, m_at + 1, m_suite)
                                       .name(NameTerm::Kind::element)
                                       .has_value();
        if (ordinal == std::end(ordinals) || !isBeforeClass)
            return nullptr;
        element.key = number(ordinal - std::begin(ordinals) + 1);
        ++m_at;
    }
    return readClass(std::move(element), from);
}

ExpressionPointer Parser::readClass(ElementExpression element, qsizetype from)
{
    const Vocabulary::Match match = matchTerm();
    const auto name = match.name(NameTerm::Kind::element);
    if (!name)
        failExpecting(u"class name"_s);
    m_at += match.length;
    element.className = name->term->canonical().toString();
    return make(std::move(element), from);
}

/// After the name of a class: a key, a range, nothing (all of them), or the class itself.
ExpressionPointer Parser::readElement(const Vocabulary::Name &name, bool isPossessed,
                                      qsizetype from)
{
    ElementExpression element { .className = name.term->canonical().toString() };
    if (readRange(element))
        return make(std::move(element), from);
    if (accept(u"id")) {
        element.form = Form::identifier;
        element.key = readKey();
    } else if (startsKey()) {
        const bool isName = peek().kind == Token::Kind::text;
        element.form = isName ? Form::name : Form::index;
        element.key = readKey();
        if (accept(u"thru") || accept(u"through")) {
            element.form = Form::range;
            element.lastKey = readKey();
        }
    } else if (name.isPlural) {
        element.form = Form::every;
    } else if (isPossessed) {
        return make(PropertyExpression { element.className, nullptr }, from);
    } else {
        return make(Literal { Value(ClassName { element.className }) }, from);
    }
    return make(std::move(element), from);
}

bool Parser::readRange(ElementExpression &element)
{
    if (m_command || !accept(u"from"))
        return false;
    element.form = Form::range;
    element.key = readKey();
    if (!accept(u"to") && !accept(u"thru"))
        expect(u"through");
    element.lastKey = readKey();
    return true;
}

/// An operand without a container: in `item i of x`, x is the container of the item.
ExpressionPointer Parser::readKey()
{
    const QScopedValueRollback allowed(m_allowed, { .of = false, .in = false, .as = false });
    const qsizetype from = m_at;
    if (accept(u"beginning"))
        return make(Literal { Value(qint64 { 1 }) }, from);
    if (accept(u"end"))
        return make(Literal { Value(qint64 { -1 }) }, from);
    return readOperand();
}

bool Parser::startsKey() const
{
    if (peek().kind == Token::Kind::symbol)
        return isAt(u"(") || isAt(u"-");
    if (peek().kind != Token::Kind::word)
        return startsOperand();
    const bool isRangeStart
        = isAt(u"beginning") || (isAt(u"end") && matchWords(u"thru", m_tokens, m_at + 1));
    const Vocabulary::Match match = matchTerm();
    const bool isValue = match.length == 0 ? isIdentifier() : !match.command && !isAtOperator();
    return isRangeStart || (isValue && !matchParameter(0, false) && !isAt(u"exists"));
}

}
