// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "actions/GlintAction.h"
#include "base/CommandRunner.h"

#include <QList>
#include <QObject>

namespace Tessel {

class ConfigManager;
class NotificationCenter;
class Pasteboard;
class Workspace;
struct ActionConfig;

/// Keeps the bar's list of actions in step with the configuration, and carries actions out.
/// Main thread only.
class ActionManager final : public QObject
{
    Q_OBJECT

public:
    struct Dependencies
    {
        ConfigManager &config;
        NotificationCenter &notifications;
        Workspace &workspace;
        Pasteboard &pasteboard;
    };

    explicit ActionManager(Dependencies dependencies);

    /// The process-wide instance, on the current platform.
    static ActionManager &shared();

    [[nodiscard]] const QList<GlintAction> &actions() const { return m_actions; }

    enum class Start { done, unknownAction, notApplicable };

    /// Runs an action as if the bar had offered it for the text and it had been picked there.
    [[nodiscard]] Start start(const QString &id, const QString &text) const;

    void reloadActions();

    /// Opens the URL; texts and templates that do not make one are passed over in silence. One that
    /// is too long for an application is announced.
    void performURLAction(const QString &urlTemplate, const QString &text);
    /// Runs a shell command; its outcome is logged, its failure announced.
    void performShellScript(const QString &commandTemplate, const QString &text);
    /// Runs an AppleScript; its output, and what is wrong with it, is logged.
    void performAppleScript(const QString &script, const QString &text);
    /// Runs the user's shortcut of that name; the outcome is logged.
    void performShortcut(const QString &name, const QString &text);
    void performBuiltin(const QString &type, const QString &text);

Q_SIGNALS:
    /// An action was chosen and runs a moment later: whatever is in the way has to go.
    void willRunAction();
    void commandFailed(const QString &title, const QString &message);
    void largeTypeRequested(const QString &text);

private:
    void dispatch(const ActionConfig &action, const QString &text);
    void run(const ActionConfig &action, const QString &text);

    Dependencies m_dependencies;
    QList<GlintAction> m_actions;
    CommandRunner m_commands;
};

}
