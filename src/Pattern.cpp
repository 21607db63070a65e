// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "Pattern.h"

#include <algorithm>
#include <limits>

#include <unicode/regex.h>

namespace {

using Clock = MatchBudget::Clock;

/// What the callbacks of a search know.
struct Watch
{
    Clock::time_point deadline;
    unsigned startsTried = 0;

    [[nodiscard]] bool hasTimeLeft() const { return Clock::now() < deadline; }
};

/// Called after each ten thousand steps or so.
UBool mayGoOn(const void *context, int32_t)
{
    return static_cast<const Watch *>(context)->hasTimeLeft();
}

/// Called at each place where a match might start.
UBool mayTryNext(const void *context, int64_t)
{
    auto *watch = static_cast<Watch *>(const_cast<void *>(context));
    return ++watch->startsTried % 256 != 0 || watch->hasTimeLeft();
}

/// Refers to the text, does not copy it.
icu::UnicodeString aliasOf(const QString &text)
{
    return { false, QStringView(text).utf16(), static_cast<int32_t>(text.size()) };
}

std::unique_ptr<const icu::RegexPattern> compiled(const QString &expression)
{
    UParseError place;
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<const icu::RegexPattern> pattern(
        icu::RegexPattern::compile(aliasOf(expression), 0, place, error));
    return U_SUCCESS(error) ? std::move(pattern) : nullptr;
}

}

struct Pattern::Compiled
{
    QString expression;
    bool isTried = false;
    std::unique_ptr<const icu::RegexPattern> pattern; ///< null when the expression is invalid
};

MatchBudget::MatchBudget(Clock::duration perPattern, Clock::duration overall)
    : m_perPattern(perPattern)
    , m_overall(overall)
{
}

MatchBudget::Clock::time_point MatchBudget::deadline()
{
    const Clock::time_point now = Clock::now();
    if (!m_end)
        m_end = now + m_overall;
    return std::min(now + m_perPattern, *m_end);
}

Pattern::Pattern(QString expression)
    : m_compiled(std::make_shared<Compiled>())
{
    m_compiled->expression = std::move(expression);
}

std::optional<QString> Pattern::firstMatch(const QString &text, MatchBudget &budget) const
{
    Watch watch { budget.deadline() };
    if (!watch.hasTimeLeft() || text.size() > std::numeric_limits<int32_t>::max())
        return std::nullopt;
    if (!std::exchange(m_compiled->isTried, true))
        m_compiled->pattern = compiled(m_compiled->expression);
    if (!m_compiled->pattern)
        return std::nullopt;

    UErrorCode error = U_ZERO_ERROR;
    const icu::UnicodeString input = aliasOf(text);
    const std::unique_ptr<icu::RegexMatcher> matcher(m_compiled->pattern->matcher(input, error));
    if (U_FAILURE(error))
        return std::nullopt;
    matcher->setMatchCallback(mayGoOn, &watch, error);
    matcher->setFindProgressCallback(mayTryNext, &watch, error);
    if (!matcher->find(error) || U_FAILURE(error))
        return std::nullopt;
    const int32_t start = matcher->start(error);
    return text.mid(start, matcher->end(error) - start);
}
