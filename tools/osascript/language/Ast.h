// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/terms/Terms.h"
#include "osascript/values/SourceRange.h"
#include "osascript/values/Value.h"

#include <memory>
#include <optional>
#include <variant>
#include <vector>

/// A script as the parser leaves it and the evaluator walks it.
namespace Tessel::Osascript {

struct Expression;
struct Statement;
struct ScriptBlock;
using ExpressionPointer = std::unique_ptr<Expression>; ///< nullptr where a part is left out
using Expressions = std::vector<ExpressionPointer>;
using Statements = std::vector<Statement>;

struct Literal
{
    Value value;
};

struct Variable
{
    QString name = {};
};

struct ListExpression
{
    Expressions items = {};
};

struct RecordExpression
{
    QStringList names = {};
    Expressions values = {};
};

struct Negation
{
    enum class Kind { arithmetic, logical };
    Kind kind;
    ExpressionPointer operand = {};
};

struct OperatorExpression
{
    Operation operation;
    ExpressionPointer left = {};
    ExpressionPointer right = {}; ///< nullptr for an operator with one operand
};

/// `name of container`. Without a container: of what is told.
struct PropertyExpression
{
    QString name = {};
    ExpressionPointer container = {};
};

/// `{name, id} of container`: each of the list's parts, which are said of `it`.
struct DistributedExpression
{
    ExpressionPointer list = {}; ///< a list expression
    ExpressionPointer container = {};
};

/// Elements of a class: `word 2 of x`, `every process whose frontmost is true` …
struct ElementExpression
{
    enum class Form { index, name, identifier, range, every, some, middle, insertion };

    QString className = {};
    Form form = Form::every;
    ExpressionPointer key = {}; ///< index (from 1, or from -1 backwards), name, start of a range
    ExpressionPointer lastKey = {}; ///< end of a range
    ExpressionPointer filter = {}; ///< evaluated with `it` being the element
    ExpressionPointer container = {};
};

struct CommandExpression
{
    struct Argument
    {
        const ParameterTerm *parameter;
        ExpressionPointer value = {};
    };

    const CommandTerm *command;
    ExpressionPointer direct = {};
    std::vector<Argument> arguments;
};

struct CallExpression
{
    QString name = {}; ///< with its labels when interleaved: "move:by:"
    Expressions arguments = {};
    QStringList labels = {}; ///< of the last arguments
    ExpressionPointer target = {}; ///< nullptr: what is told
};

/// `it`, `me`.
struct Pronoun
{
    enum class Kind { it, me };
    Kind kind;
};

struct ReferenceExpression
{
    ExpressionPointer target = {};
};

struct ExistsExpression
{
    ExpressionPointer operand = {};
};

struct Expression
{
    using Form = std::variant<Literal, Variable, ListExpression, RecordExpression, Negation,
                              OperatorExpression, PropertyExpression, ElementExpression,
                              CommandExpression, CallExpression, Pronoun, ReferenceExpression,
                              ExistsExpression, DistributedExpression>;
    Form form;
    SourceRange where;
};

struct ExpressionStatement
{
    ExpressionPointer value = {};
};

struct Assignment
{
    ExpressionPointer target = {}; ///< a place, or a list or record of places
    ExpressionPointer value = {};
    bool copies = false;
};

struct IfStatement
{
    struct Branch
    {
        ExpressionPointer test = {}; ///< nullptr: else
        Statements body;
    };
    std::vector<Branch> branches;
};

struct RepeatStatement
{
    enum class Form { forever, times, whileTrue, untilTrue, counting, iterating };
    Form form = Form::forever;
    QString variable = {};
    ExpressionPointer value = {}; ///< count, test, first number, or list
    ExpressionPointer last = {};
    ExpressionPointer step = {};
    Statements body;
};

struct ExitRepeat
{
};

struct ReturnStatement
{
    ExpressionPointer value = {};
};

struct TryStatement
{
    Statements body;
    Statements handler;
    QString message = {}; ///< a variable, or empty
    QString number = {}; ///< a variable, or empty
    QString source = {}; ///< of `from`: a variable, or empty
    QString wanted = {}; ///< of `to`: a variable, or empty
    QString partialResult = {}; ///< a variable, or empty
    std::optional<int> onlyNumber = std::nullopt; ///< the only error that is caught
};

struct ErrorStatement
{
    ExpressionPointer message = {};
    ExpressionPointer number = {};
    ExpressionPointer source = {}; ///< of `from`
    ExpressionPointer wanted = {}; ///< of `to`
    ExpressionPointer partialResult = {};
};

struct TellStatement
{
    ExpressionPointer target = {};
    Statements body;
};

/// How texts are compared inside a block.
struct ConsideringStatement
{
    enum class Attribute {
        letterCase,
        diacriticals,
        whiteSpace,
        punctuation,
        hyphens,
        numericStrings,
    };
    QList<Attribute> considered;
    QList<Attribute> ignored;
    Statements body;
};

struct Declaration
{
    enum class Scope { global, local };
    Scope scope;
    QStringList names = {};
};

struct Block
{
    Statements body;
};

struct ScriptStatement
{
    std::unique_ptr<ScriptBlock> script;
};

struct Statement
{
    using Form
        = std::variant<ExpressionStatement, Assignment, IfStatement, RepeatStatement, ExitRepeat,
                       ReturnStatement, TryStatement, ErrorStatement, TellStatement,
                       ConsideringStatement, Declaration, Block, ScriptStatement>;
    Form form;
    SourceRange where;
};

struct HandlerDefinition
{
    QString name = {};
    Expressions parameters = {}; ///< variables, or patterns of lists and records
    QStringList labels = {}; ///< of the last parameters
    bool takesOptionalArguments = false; ///< `on run`: missing arguments are not an error
    Statements body = {};
};

struct ScriptBlock
{
    struct Property
    {
        QString name = {};
        ExpressionPointer value = {}; ///< or a nested script
        std::unique_ptr<ScriptBlock> script;
    };

    QString name = {};
    std::vector<Property> properties;
    QStringList globals = {};
    std::vector<HandlerDefinition> handlers; ///< an implicit `run` is among them
};

}
