// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "osascript/applications/Applications.h"
#include "osascript/language/Ast.h"
#include "osascript/language/Parser.h"
#include "osascript/language/Vocabulary.h"
#include "osascript/runtime/StandardAdditions.h"
#include "osascript/values/ScriptObject.h"
#include "osascript/values/TextContext.h"
#include "osascript/values/ValueElements.h"

#include <memory>
#include <vector>

namespace Tessel::Osascript {

/// A place of a script, all of whose parts are values: evaluated when asked for, assigned to when
/// its contents are set.
struct Reference
{
    std::unique_ptr<Expression> place;
};

/// Walks the tree of a script.
class Evaluator final
{
public:
    explicit Evaluator(Host &host);
    ~Evaluator();
    Q_DISABLE_COPY_MOVE(Evaluator)

    /// Parses all of the script and checks that the applications it tells are there before anything
    /// runs. Returns the result of its run handler, which may be nothing. Raises script errors.
    [[nodiscard]] Value run(const QString &source, const QList<Value> &arguments);
    /// After the last script.
    void finish() { m_applications.finish(); }

private:
    enum class Flow { next, exitRepeat, returned };

    /// A handler that runs.
    struct Frame
    {
        ScriptObject *me = nullptr;
        Variables *variables = nullptr;
        QSet<QString> globals = {};
        QSet<QString> locals = {};
        Value it = {}; ///< what is told
        bool isMany = false; ///< it is a list of elements that are told one by one
        Value result = {};
        Variables own = {};
    };

    [[nodiscard]] TextContext context() const;
    [[nodiscard]] Frame &frame() { return *m_frame; }

    // Expressions (Evaluator.cpp)
    [[nodiscard]] Value evaluate(const Expression &expression); ///< may be nothing
    [[nodiscard]] Value valueOf(const ExpressionPointer &expression); ///< raises -2763 for nothing
    /// The same, but a reference stays one: for what is kept rather than used.
    [[nodiscard]] Value heldBy(const ExpressionPointer &expression);
    [[nodiscard]] Value optionalValueOf(const ExpressionPointer &expression);
    Value evaluateForm(const Literal &literal);
    Value evaluateForm(const Variable &variable);
    Value evaluateForm(const ListExpression &list);
    Value evaluateForm(const RecordExpression &record);
    Value evaluateForm(const Negation &negation);
    Value evaluateForm(const OperatorExpression &expression);
    Value evaluateForm(const PropertyExpression &property);
    Value evaluateForm(const ElementExpression &element);
    Value evaluateForm(const CommandExpression &command);
    Value evaluateForm(const CallExpression &call);
    Value evaluateForm(const Pronoun &pronoun);
    Value evaluateForm(const ReferenceExpression &reference);
    Value evaluateForm(const ExistsExpression &exists);
    Value evaluateForm(const DistributedExpression &distributed);
    bool runs(const ExpressionPointer &application);
    Value coercedTo(const Value &value, const QString &className);
    Value coercedTo(const Value &value, const Expression &classes);

    // Variables, properties, references (EvaluatorVariables.cpp)
    [[nodiscard]] Value *findVariable(const QString &name);
    [[nodiscard]] Value *findProperty(ScriptObject *script, const QString &name);
    [[nodiscard]] Value *findVisible(ScriptObject *script, const QString &name);
    [[nodiscard]] Value *findScriptVariable(ScriptObject *script, const QString &name);
    [[nodiscard]] bool isGlobal(const QString &key) const;
    void setVariable(const QString &name, const Value &value);
    [[nodiscard]] bool isMany(const Expression &expression) const;
    Value propertyOf(const ExpressionPointer &container, const QString &name);
    Value propertyOf(const Value &container, const QString &name);
    Value propertyOfEach(const Value &container, const QString &name);
    Value ownProperty(const QString &name); ///< of what is told
    Value languageProperty(const QString &name); ///< of AppleScript; nothing when there is none
    ExpressionPointer closed(const ExpressionPointer &place);
    Value resolved(const Value &value); ///< what a reference refers to
    void assign(const Expression &target, const Value &value);
    void assignForm(const Variable &target, const Value &value);
    void assignForm(const PropertyExpression &target, const Value &value);
    void assignForm(const ElementExpression &target, const Value &value);
    void assignForm(const ListExpression &target, const Value &value);
    void assignForm(const DistributedExpression &target, const Value &value);
    void assignForm(const RecordExpression &target, const Value &value);
    void setProperty(const ExpressionPointer &container, const QString &name, const Value &value);
    void setProperty(const Value &container, const QString &name, const Value &value);
    void setOwnProperty(const QString &name, const Value &value);
    bool setContents(const ExpressionPointer &place, const Value &value);

    // Elements (EvaluatorElements.cpp)
    [[nodiscard]] static bool isDistributed(const ElementExpression &element);
    Value namedValue(const ElementExpression &element);
    Value elementOf(const ElementExpression &element, const Value &container);
    Value objectOf(const ElementExpression &element, const Object &container);
    Value objectNamed(const QString &name, const QString &className, const QList<Object> &objects);
    Value objectAmong(const QList<Object> &objects, const ElementExpression &element,
                      const Value &key);
    Value insertedAt(const ElementExpression &element, const Value &container);
    QList<Object> filtered(QList<Object> objects, const ExpressionPointer &filter);
    Value rangeOf(const ElementExpression &element, const ValueElements &elements,
                  const Value &container);
    TextRange boundary(const ExpressionPointer &key, const QString &text);

    // Commands and calls (EvaluatorCommands.cpp)
    Value perform(const Invocation &invocation);
    Value performOnApplication(const Invocation &invocation);
    Value runObject(const Invocation &invocation);
    Value call(ScriptObject *owner, const HandlerDefinition &handler,
               const QList<Value> &arguments);
    [[nodiscard]] const HandlerDefinition *findHandler(ScriptObject *&owner, const QString &name);
    QList<Value> orderedArguments(const CallExpression &call, const HandlerDefinition &handler);
    void bind(const HandlerDefinition &handler, const QList<Value> &arguments);
    ScriptObject *instantiate(const ScriptBlock &block, ScriptObject *outer,
                              const Variables &captured = {});
    void checkApplications(const ParsedScript &parsed);

    // Statements (EvaluatorStatements.cpp)
    Flow execute(const Statements &statements);
    Flow executeForm(const ExpressionStatement &statement);
    Flow executeForm(const Assignment &assignment);
    Flow executeForm(const IfStatement &statement);
    Flow executeForm(const RepeatStatement &repeat);
    Flow executeForm(const ExitRepeat &statement);
    Flow executeForm(const ReturnStatement &statement);
    Flow executeForm(const TryStatement &statement);
    Flow executeForm(const ErrorStatement &error);
    Flow executeForm(const TellStatement &tell);
    Flow executeForm(const ConsideringStatement &statement);
    Flow executeForm(const Declaration &declaration);
    Flow executeForm(const Block &block);
    Flow executeForm(const ScriptStatement &statement);
    Flow repeatCounting(const RepeatStatement &repeat);
    Flow repeatOver(const RepeatStatement &repeat);
    bool continues(const RepeatStatement &repeat, qint64 &left);

    Vocabulary m_vocabulary;
    Applications m_applications;
    StandardAdditions m_additions;
    std::vector<std::unique_ptr<ScriptBlock>> m_blocks; ///< of all scripts that ran
    std::vector<std::unique_ptr<ScriptObject>> m_scripts; ///< owned here: they refer to each other
    Variables m_globals;
    ComparisonRules m_rules;
    Value m_delimiters;
    Frame *m_frame = nullptr;
};

}
