// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>
#include <memory>
#include <optional>

namespace Tessel {

/// The time that the patterns of one key press may take together. Begins when the first of them
/// runs.
class MatchBudget
{
public:
    using Clock = std::chrono::steady_clock;

    explicit MatchBudget(Clock::duration perPattern = std::chrono::milliseconds(100),
                         Clock::duration overall = std::chrono::milliseconds(300));

    /// When a pattern that starts now has to give up.
    [[nodiscard]] Clock::time_point deadline();

private:
    Clock::duration m_perPattern;
    Clock::duration m_overall;
    std::optional<Clock::time_point> m_end;
};

/// A regular expression in ICU's syntax, compiled when it is first needed. Copies share the
/// compiled form. Main thread only.
class Pattern
{
public:
    explicit Pattern(QString expression);

    /// Whether ICU can read the expression; one that it cannot read matches nothing.
    [[nodiscard]] static bool isValid(const QString &expression);

    /// The first match in the text. Nothing when there is none, when the expression is invalid, or
    /// when the search runs out of time or of ICU's default stack space.
    [[nodiscard]] std::optional<QString> firstMatch(const QString &text, MatchBudget &budget) const;

private:
    struct Compiled;
    std::shared_ptr<Compiled> m_compiled;
};

}
