// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/language/Ast.h"
#include "osascript/language/Lexer.h"
#include "osascript/language/Vocabulary.h"
#include "osascript/values/ScriptError.h"

namespace Tessel::Osascript {

/// A whole script, and the applications that it tells by a name that stands in it.
struct ParsedScript
{
    struct ToldApplication
    {
        QString name;
        SourceRange where;
    };

    ScriptBlock script;
    QList<ToldApplication> applications;
};

/// Recursive descent over the tokens of a script. What words mean depends on the application that
/// is told around them. Raises syntax errors.
class Parser final
{
public:
    Parser(QStringView script, const Vocabulary &vocabulary);
    [[nodiscard]] ParsedScript parse();

private:
    /// What may follow an operand; parentheses allow everything again.
    struct Allowed
    {
        bool of = true;
        bool in = true;
        bool as = true;
    };

    /// How tightly operators bind; the tightest last.
    enum Precedence {
        disjunction,
        conjunction,
        logicalNegation,
        equality,
        relation,
        coercion,
        concatenation,
        addition,
        multiplication,
        power,
        operand,
    };

    static constexpr int maxNesting = 200;

    // Tokens (Parser.cpp)
    [[nodiscard]] const Token &peek(qsizetype ahead = 0) const;
    [[nodiscard]] bool isAt(QStringView words) const;
    [[nodiscard]] bool isAtLineEnd() const;
    bool accept(QStringView words);
    void expect(QStringView words);
    void expectLineEnd();
    [[noreturn]] void failExpecting(const QString &what) const;
    [[noreturn]] void failSyntax(const QString &message) const;
    [[nodiscard]] SourceRange since(qsizetype token) const;
    [[nodiscard]] Vocabulary::Match matchTerm() const;
    [[nodiscard]] bool isIdentifier(qsizetype ahead = 0) const;
    QString readIdentifier();
    void skipArticle();
    template <typename Form> [[nodiscard]] ExpressionPointer make(Form form, qsizetype from) const
    {
        return std::make_unique<Expression>(Expression { std::move(form), since(from) });
    }

    // Scripts and handlers (Parser.cpp)
    void findLabelledHandlers();
    ScriptBlock readScriptItems();
    bool readScriptItem(ScriptBlock &script);
    void readUse();
    HandlerDefinition readHandler();
    void readPositionalParameters(HandlerDefinition &handler);
    void readLabelledParameters(HandlerDefinition &handler);
    void readInterleavedParameters(HandlerDefinition &handler);
    void addParameter(HandlerDefinition &handler, ExpressionPointer parameter);
    std::unique_ptr<ScriptBlock> readScript();
    void addAssigned(const Expression &target);
    void checkLoneWords() const;

    // Statements (ParserStatements.cpp)
    Statements readBody();
    void readEnd(QStringView name);
    [[nodiscard]] const StatementTerm *matchStatement() const;
    Statement readStatement();
    Statement::Form readForm(Keyword keyword);
    Statement::Form readExpressionStatement();
    Statement::Form readAssignment(bool copies);
    Statement::Form readIf();
    Statement::Form readRepeat();
    void readRepeatHead(RepeatStatement &repeat);
    Statement::Form readTry();
    [[nodiscard]] bool isAtErrorPart() const;
    void readErrorPattern(TryStatement &statement);
    Statement::Form readError();
    Statement::Form readTell();
    Statement::Form readConsidering(bool considers);
    QList<ConsideringStatement::Attribute> readAttributes();
    Statement::Form readDeclaration(Declaration::Scope scope);
    Statement::Form readTimeout();
    Statement::Form readUsingTerms();
    Statements readBodyTold(const Expression &target, QStringView name, bool inOneLine);

    // Expressions (ParserExpressions.cpp)
    [[nodiscard]] static Precedence precedenceOf(Operation operation);
    ExpressionPointer readExpression(Precedence loosest = disjunction);
    ExpressionPointer readOperand();
    ExpressionPointer readPrefixed(Precedence loosest);
    ExpressionPointer readCoercionTarget();
    ExpressionPointer readPostfixed();
    ExpressionPointer readExistence(ExpressionPointer subject);
    ExpressionPointer readPrimary();
    ExpressionPointer readLiteral();
    ExpressionPointer readParenthesized();
    ExpressionPointer readBraces();
    ExpressionPointer distributed(ExpressionPointer list, qsizetype from);
    ExpressionPointer readRecord(qsizetype from);
    qsizetype labelLength() const;
    ExpressionPointer readPronoun();
    [[nodiscard]] bool isAtOperator() const;
    [[nodiscard]] bool startsOperand() const;
    void countOperator();

    // Places: properties, elements and their containers (ParserPlaces.cpp)
    ExpressionPointer readPlace();
    ExpressionPointer readPart();
    ExpressionPointer readTerm(const Vocabulary::Match &match);
    ExpressionPointer readOrdinal();
    ExpressionPointer readClass(ElementExpression element, qsizetype from);
    ExpressionPointer readElement(const Vocabulary::Name &name, bool isPossessed, qsizetype from);
    bool readRange(ElementExpression &element);
    ExpressionPointer readKey();
    [[nodiscard]] bool startsKey() const;
    [[nodiscard]] bool isBeforeContainer() const;
    ExpressionPointer readContainer();
    ExpressionPointer within(ExpressionPointer part, ExpressionPointer container,
                             qsizetype from) const;
    void readFilter(Expression &place);

    // Commands and calls (ParserCommands.cpp)
    ExpressionPointer readCommand(const CommandTerm &command, qsizetype length);
    void readDirect(CommandExpression &call, Precedence loosest);
    bool readArgument(CommandExpression &call);
    bool readFlags(CommandExpression &call);
    ExpressionPointer readArgumentValue(const ParameterTerm &parameter);
    ExpressionPointer readChoice(QStringView choices);
    ExpressionPointer readClassName();
    [[nodiscard]] const ParameterTerm *matchParameter(qsizetype ahead, bool isFlag) const;
    ExpressionPointer readCall(const QString &name, qsizetype from);
    ExpressionPointer readPositionalCall(const QString &name, qsizetype from);
    ExpressionPointer readLabelledCall(const QString &name, qsizetype from);
    ExpressionPointer readInterleavedCall(const QString &name, qsizetype from);

    const Vocabulary &m_vocabulary;
    QList<Token> m_tokens;
    qsizetype m_at = 0;
    qsizetype m_statementStart = -1; ///< token at which the statement being read starts
    Suite m_suite = Suite::language; ///< of the application that is told
    Allowed m_allowed;
    const CommandTerm *m_command = nullptr; ///< whose arguments are being read
    QSet<QString> m_labelledHandlers; ///< in lower case
    QSet<QString> m_assigned; ///< all names that get a value somewhere, in lower case
    QList<Token> m_loneWords; ///< statements of one name inside `tell application`
    QList<ParsedScript::ToldApplication> m_applications;
    int m_depth = 0;
    int m_operators = 0; ///< of the statement
};

}
