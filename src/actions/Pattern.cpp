// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "actions/Pattern.h"

#include "actions/RequiredLiteral.h"
#include "actions/TimedText.h"

#include <algorithm>
#include <limits>

#include <unicode/regex.h>

namespace Tessel {

namespace {

/// What the callbacks of a search know.
struct Watch
{
    const TimedText &text;
    unsigned startsTried = 0;
};

/// Called after each ten thousand steps or so.
UBool mayGoOn(const void *context, int32_t)
{
    return static_cast<const Watch *>(context)->text.hasTimeLeft() ? 1 : 0;
}

/// Called at each place where a match might start.
UBool mayTryNext(const void *context, int64_t)
{
    auto *watch = static_cast<Watch *>(const_cast<void *>(context));
    return ++watch->startsTried % 256 != 0 || watch->text.hasTimeLeft() ? 1 : 0;
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

std::optional<QString> search(const icu::RegexPattern &pattern, const QString &text,
                              MatchBudget::Clock::time_point deadline)
{
    UErrorCode error = U_ZERO_ERROR;
    TimedText input(text, deadline);
    Watch watch { input };
    const std::unique_ptr<icu::RegexMatcher> matcher(pattern.matcher(error));
    if (U_FAILURE(error))
        return std::nullopt;
    matcher->reset(input.get());
    matcher->setMatchCallback(mayGoOn, &watch, error);
    matcher->setFindProgressCallback(mayTryNext, &watch, error);
    if (!matcher->find(error) || U_FAILURE(error) || !input.hasTimeLeft())
        return std::nullopt;
    const int32_t start = matcher->start(error);
    return text.mid(start, matcher->end(error) - start);
}

}

struct Pattern::Compiled
{
    explicit Compiled(QString text)
        : expression(std::move(text))
    {
    }
    ~Compiled() { keptCount -= kept ? 1 : 0; }
    Q_DISABLE_COPY_MOVE(Compiled)

    const QString expression;
    const QStringView literal = requiredLiteral(expression);
    std::unique_ptr<const icu::RegexPattern> kept;

    static constexpr int maxKept = 200; // each takes one to five KiB
    static inline int keptCount = 0;
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
    : m_compiled(std::make_shared<Compiled>(std::move(expression)))
{
}

bool Pattern::isValid(const QString &expression)
{
    return compiled(expression) != nullptr;
}

std::optional<QString> Pattern::firstMatch(const QString &text, MatchBudget &budget) const
{
    const auto deadline = budget.deadline();
    if (MatchBudget::Clock::now() >= deadline || text.size() > std::numeric_limits<int32_t>::max()
        || !text.contains(m_compiled->literal)) {
        return std::nullopt;
    }
    if (m_compiled->kept)
        return search(*m_compiled->kept, text, deadline);
    std::unique_ptr<const icu::RegexPattern> pattern = compiled(m_compiled->expression);
    if (!pattern)
        return std::nullopt;
    std::optional<QString> match = search(*pattern, text, deadline);
    if (Compiled::keptCount < Compiled::maxKept) {
        m_compiled->kept = std::move(pattern);
        ++Compiled::keptCount;
    }
    return match;
}

}
