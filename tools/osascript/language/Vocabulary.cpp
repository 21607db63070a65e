// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "osascript/language/Vocabulary.h"

#include <QStringTokenizer>

namespace Tessel::Osascript {

namespace {

QString firstWord(QStringView words)
{
    return words.left(words.indexOf(u' ')).toString().toLower();
}

/// Where the same words stand in several suites, the told application's command counts.
bool givesWay(const CommandTerm *command)
{
    return !command || command->suite == Suite::application;
}

bool isKnown(Suite suite, Suite told)
{
    return suite <= Suite::application || suite == told;
}

}

qsizetype matchWords(QStringView words, const QList<Token> &tokens, qsizetype at)
{
    qsizetype length = 0;
    for (const QStringView word : words.tokenize(u' ')) {
        const Token &token = tokens.at(std::min(at + length, tokens.size() - 1));
        const bool isWord = token.kind == Token::Kind::word || token.kind == Token::Kind::symbol;
        if (!isWord || word.compare(token.text, Qt::CaseInsensitive) != 0)
            return 0;
        ++length;
    }
    return length;
}

std::optional<Vocabulary::Name> Vocabulary::Match::name(NameTerm::Kind kind) const
{
    for (const Name &name : names) {
        if (name.term->kind == kind)
            return name;
    }
    return std::nullopt;
}

Vocabulary::Vocabulary()
{
    for (const NameTerm &term : nameTerms()) {
        add({ .words = term.words, .name = { &term, false }, .suite = term.suite });
        if (!term.plural.isEmpty())
            add({ .words = term.plural, .name = { &term, true }, .suite = term.suite });
    }
    for (const CommandTerm &term : commandTerms())
        add({ .words = term.words, .command = &term, .suite = term.suite });
    for (const OperatorTerm &term : operatorTerms())
        m_operators.insert(firstWord(term.words), &term);
    for (const QStringView word : reservedWords())
        m_reserved.insert(word.toString());
}

void Vocabulary::add(const Entry &entry)
{
    m_entries.insert(firstWord(entry.words), entry);
}

Vocabulary::Match Vocabulary::match(const QList<Token> &tokens, qsizetype at, Suite suite) const
{
    Match best;
    const auto [first, last] = m_entries.equal_range(tokens.at(at).text.toLower());
    for (auto entry = first; entry != last; ++entry) {
        const qsizetype length
            = isKnown(entry->suite, suite) ? matchWords(entry->words, tokens, at) : 0;
        if (length == 0 || length < best.length)
            continue;
        if (length > best.length)
            best = { .length = length, .names = {}, .command = nullptr };
        if (entry->name.term)
            best.names.append(entry->name);
        if (entry->command && givesWay(best.command))
            best.command = entry->command;
    }
    return best;
}

Vocabulary::OperatorMatch Vocabulary::matchOperator(const QList<Token> &tokens, qsizetype at) const
{
    OperatorMatch best;
    const auto [first, last] = m_operators.equal_range(tokens.at(at).text.toLower());
    for (auto term = first; term != last; ++term) {
        const qsizetype length = matchWords((*term)->words, tokens, at);
        if (length > best.length)
            best = { length, (*term)->operation };
    }
    return best;
}

bool Vocabulary::isReserved(QStringView word) const
{
    return m_reserved.contains(word.toString().toLower());
}

}
