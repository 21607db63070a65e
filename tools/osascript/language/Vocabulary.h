// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/language/Token.h"
#include "osascript/terms/Terms.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <optional>

namespace Tessel::Osascript {

/// Finds the longest term that a row of tokens starts with. What is known depends on the
/// application that is told.
class Vocabulary final
{
public:
    struct Name
    {
        const NameTerm *term = nullptr;
        bool isPlural = false;
    };

    struct Match
    {
        qsizetype length = 0; ///< tokens; 0: no term
        QList<Name> names; ///< the terms that have these words
        const CommandTerm *command = nullptr;

        [[nodiscard]] std::optional<Name> name(NameTerm::Kind kind) const;
    };

    struct OperatorMatch
    {
        qsizetype length = 0;
        Operation operation = Operation::equal;
    };

    Vocabulary();

    [[nodiscard]] Match match(const QList<Token> &tokens, qsizetype at, Suite suite) const;
    [[nodiscard]] OperatorMatch matchOperator(const QList<Token> &tokens, qsizetype at) const;
    [[nodiscard]] bool isReserved(QStringView word) const;

private:
    struct Entry
    {
        QStringView words;
        Name name = {};
        const CommandTerm *command = nullptr;
        Suite suite = Suite::language;
    };

    void add(const Entry &entry);

    QMultiHash<QString, Entry> m_entries; ///< by the first word
    QMultiHash<QString, const OperatorTerm *> m_operators; ///< by the first word
    QSet<QString> m_reserved;
};

/// How many tokens the words take there; 0 when they are not there. A symbol is one word.
[[nodiscard]] qsizetype matchWords(QStringView words, const QList<Token> &tokens, qsizetype at);

}
