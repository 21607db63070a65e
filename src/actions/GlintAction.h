// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace Tessel {

class MatchBudget;
struct ActionConfig;

/// One entry of the bar's list.
struct GlintAction
{
    /// Gives the part of the text that the action works on, or nothing when it does not apply.
    using Check = std::function<std::optional<QString>(const QString &text, MatchBudget &budget)>;

    QString id;
    QString title;
    QString iconName;
    Check check; ///< may be empty: the action applies to any text
    std::function<void(const QString &text)> handler; ///< runs the action; returns at once

    /// The part of the text that it works on; nothing when it does not apply.
    [[nodiscard]] std::optional<QString> applicablePart(const QString &text,
                                                        MatchBudget &budget) const
    {
        return check ? check(text, budget) : std::optional(text);
    }
};

/// Runs a configured action on a text.
using ActionRunner = std::function<void(const ActionConfig &action, const QString &text)>;

/// The enabled and runnable actions in the user's order. Their handlers call the runner.
[[nodiscard]] QList<GlintAction> getGlintActions(const QList<ActionConfig> &configured,
                                                 const ActionRunner &run);

}
