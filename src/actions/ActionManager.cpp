// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/ActionManager.h"

#include "actions/Pattern.h"
#include "actions/Placeholder.h"
#include "actions/ScriptAction.h"
#include "actions/ShellAction.h"
#include "base/ChildProcess.h"
#include "base/LocalizationManager.h"
#include "base/Log.h"
#include "base/TextRules.h"
#include "base/Url.h"
#include "config/ConfigManager.h"
#include "config/NotificationCenter.h"
#include "platform/Pasteboard.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

#include <QTimer>

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Tessel {

namespace {

/// The application below needs this long to be active again.
constexpr auto handOver = 100ms;

/// What carries out an action of each type, with its template and the text.
constexpr std::pair<ActionType, void (ActionManager::*)(const QString &, const QString &)>
    executors[] = {
        { ActionType::url, &ActionManager::performURLAction },
        { ActionType::shortcut, &ActionManager::performShortcut },
        { ActionType::shellScript, &ActionManager::performShellScript },
        { ActionType::appleScript, &ActionManager::performAppleScript },
        { ActionType::builtin, &ActionManager::performBuiltin },
    };

void logUnlessEmpty(const QString &line)
{
    if (!line.isEmpty())
        Log::print(line);
}

}

ActionManager::ActionManager(Dependencies dependencies)
    : m_dependencies(dependencies)
{
    connect(&dependencies.notifications, &NotificationCenter::configDidChange, this,
            &ActionManager::reloadActions);
    reloadActions();
}

ActionManager &ActionManager::shared()
{
    static auto *instance
        = new ActionManager({ ConfigManager::shared(), NotificationCenter::defaultCenter(),
                              Platform::current().workspace(), Platform::current().pasteboard() });
    return *instance;
}

void ActionManager::reloadActions()
{
    m_actions = getGlintActions(
        m_dependencies.config.customActions,
        [this](const ActionConfig &action, const QString &text) { dispatch(action, text); });
    Q_EMIT m_dependencies.notifications.actionsDidReload();
}

ActionManager::Start ActionManager::start(const QString &id, const QString &text) const
{
    const auto action = std::find_if(m_actions.begin(), m_actions.end(),
                                     [&id](const GlintAction &known) { return known.id == id; });
    if (action == m_actions.end())
        return Start::unknownAction;
    MatchBudget budget;
    const auto part = action->applicablePart(withNormalizedLineEnds(text), budget);
    if (!part || part->isEmpty())
        return Start::notApplicable;
    action->handler(*part);
    return Start::done;
}

void ActionManager::dispatch(const ActionConfig &action, const QString &text)
{
    Q_EMIT willRunAction();
    QTimer::singleShot(handOver, Qt::PreciseTimer, this,
                       [this, action, text] { run(action, text); });
}

void ActionManager::run(const ActionConfig &action, const QString &text)
{
    for (const auto &[type, perform] : executors) {
        if (type == action.type)
            (this->*perform)(action.templateText, text);
    }
}

void ActionManager::performURLAction(const QString &urlTemplate, const QString &text)
{
    const auto encoded = Placeholder::percentEncodedForQuery(text);
    if (!encoded)
        return;
    const auto url = Url::validated(Placeholder::substitute(urlTemplate, *encoded));
    if (!url)
        return;
    if (!canBeHandedOver({ .program = {}, .arguments = { *url } })) {
        const QString title = u"The address is too long"_s;
        const QString message = u"Applications take addresses of up to 128 KB. Select less text."_s;
        Log::print(u"ERROR: "_s + title);
        Q_EMIT commandFailed(localized(title), localized(message));
        return;
    }
    m_dependencies.workspace.open(*url);
    Log::print(u"Action: Opened URL "_s + *url);
}

void ActionManager::performShellScript(const QString &commandTemplate, const QString &text)
{
    m_commands.run(shellCommandRequest(commandTemplate, text, defaultShell()),
                   [this](const Result<CommandResult> &result) {
                       const ShellReport report = shellReport(result);
                       logUnlessEmpty(report.logLine);
                       if (report.error)
                           Q_EMIT commandFailed(report.error->title, report.error->message);
                   });
}

void ActionManager::performAppleScript(const QString &script, const QString &text)
{
    m_commands.run(appleScriptRequest(script, text, scriptRunner()),
                   [](const Result<CommandResult> &result) {
                       logUnlessEmpty(scriptLogLine(u"AppleScript"_s, result));
                   });
}

void ActionManager::performShortcut(const QString &name, const QString &text)
{
    if (name.isEmpty())
        return;
    const QString stored = shortcutName(name);
    Log::print(u"Action: Requesting shortcut '"_s + stored + u"'"_s);
    m_commands.run(shortcutRequest(stored, text, scriptRunner()),
                   [](const Result<CommandResult> &result) {
                       logUnlessEmpty(scriptLogLine(u"Shortcut"_s, result));
                   });
}

void ActionManager::performBuiltin(const QString &type, const QString &text)
{
    if (type == Builtin::copy) {
        m_dependencies.pasteboard.setString(text);
        Log::print(u"Action: Copied text to clipboard");
    } else if (type == Builtin::count) {
        const QString count = QString::number(characterCount(text));
        m_dependencies.pasteboard.setString(count);
        Log::print(u"Action: Copied count "_s + count + u" to clipboard"_s);
    } else if (type == Builtin::largeType) {
        // When the bar has been hidden.
        QMetaObject::invokeMethod(
            this, [this, text] { Q_EMIT largeTypeRequested(text); }, Qt::QueuedConnection);
    } else {
        Log::print(u"Action: Unknown builtin type "_s + type);
    }
}

}
