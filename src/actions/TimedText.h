// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <chrono>

#include <unicode/utext.h>

namespace Tessel {

/// A text that ICU reads in small pieces. Once the time is up it has no more of them: whatever runs
/// through the text comes to its end at once, and what was found then counts for nothing. ICU's own
/// callbacks come too seldom: between two of them a million pieces may be read.
///
/// Refers to the text. ICU may make copies, which refer to this object.
class TimedText final
{
public:
    using Clock = std::chrono::steady_clock;

    TimedText(QStringView text, Clock::time_point deadline);
    ~TimedText();
    Q_DISABLE_COPY_MOVE(TimedText)

    [[nodiscard]] UText *get() { return &m_handle; }
    [[nodiscard]] bool hasTimeLeft() const { return Clock::now() < m_deadline; }

private:
    static const UTextFuncs functions;

    static UText *refer(UText *handle, const TimedText *text, UErrorCode *error);
    static UText *copy(UText *target, const UText *source, UBool isDeep, UErrorCode *error);
    static int64_t size(UText *handle);
    static UBool access(UText *handle, int64_t index, UBool isForward);
    [[nodiscard]] int64_t boundaryAt(int64_t index) const;

    QStringView m_text;
    Clock::time_point m_deadline;
    UText m_handle = UTEXT_INITIALIZER;
};

}
