// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"
#include "osascript/values/SourceRange.h"

#include <QString>

#include <memory>
#include <optional>

namespace Tessel::Osascript {

struct ErrorParts;

/// What `error` raises and `on error` catches. Thrown inside the library only. The numbers are
/// those of the AppleScript Language Guide, "Error Numbers and Error Messages".
struct ScriptError
{
    enum class Phase { execution, syntax };
    enum Number {
        outOfMemory = -108,
        userCanceled = -128,
        failed = -2700,
        cannotCoerce = -1700,
        notUnderstood = -1708,
        noUserInteraction = -1713,
        invalidIndex = -1719,
        cannotGet = -1728,
        notAllowed = -10004,
        cannotSet = -10006,
        divideByZero = -2701,
        numberTooLarge = -2702,
        stackOverflow = -2706,
        missingParameter = -1701,
        badToken = -2740,
        syntaxError = -2741,
        notDefined = -2753,
        noResult = -2763,
    };

    QString message;
    int number = failed;
    Phase phase = Phase::execution;
    std::optional<SourceRange> where = std::nullopt; ///< set by the innermost code that knows it
    std::shared_ptr<const ErrorParts> parts = nullptr; ///< the values that a script raised it with
};

/// The message ends with a full stop.
[[noreturn]] void fail(ScriptError::Number number, const QString &message);
[[noreturn]] void failWith(int number, const QString &message);

/// Raises what failed as an error.
void check(const Result<void> &result);

[[noreturn]] void failToGet(const QString &what);
[[noreturn]] void failToSet(const QString &what, const QString &value);
[[noreturn]] void failToCoerce(const QString &what, const QString &className);

}
