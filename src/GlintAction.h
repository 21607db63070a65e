// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <optional>

class MatchBudget;

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
};
