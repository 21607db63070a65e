// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/GlintAction.h"

#include "actions/Pattern.h"
#include "config/ConfigManager.h"

#include <QHash>

#include <memory>

namespace Tessel {

namespace {

/// Equal regular expressions share a pattern, and with it what that compiles.
GlintAction::Check checkFor(const ActionConfig &action, QHash<QString, Pattern> &patterns)
{
    const QString regex = action.regex.value_or(QString());
    if (regex.isEmpty())
        return [](const QString &text, MatchBudget &) { return std::optional(text); };
    auto known = patterns.constFind(regex);
    if (known == patterns.cend())
        known = patterns.insert(regex, Pattern(regex));
    return [pattern = *known](const QString &text, MatchBudget &budget) {
        return pattern.firstMatch(text, budget);
    };
}

}

QList<GlintAction> getGlintActions(const QList<ActionConfig> &configured, const ActionRunner &run)
{
    // The handlers share one copy of the list, which later changes to the configuration leave
    // alone.
    struct Snapshot
    {
        QList<ActionConfig> actions;
        ActionRunner run;
    };
    const auto snapshot = std::make_shared<const Snapshot>(Snapshot { configured, run });
    QHash<QString, Pattern> patterns;
    QList<GlintAction> list;
    list.reserve(configured.size());
    for (qsizetype i = 0; i < configured.size(); ++i) {
        const ActionConfig &action = snapshot->actions[i];
        if (!action.isEnabled || !ConfigManager::validateAction(action))
            continue;
        list.append({ .id = action.id,
                      .title = action.title,
                      .iconName = action.iconName,
                      .check = checkFor(action, patterns),
                      .handler = [snapshot, i](const QString &text) {
                          snapshot->run(snapshot->actions[i], text);
                      } });
    }
    return list;
}

}
