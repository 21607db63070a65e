// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "update-check/Appcast.h"

#include <QByteArray>

namespace Tessel {

/// What a check found out.
struct CheckResult
{
    enum class Status {
        newer, ///< there is a version above the one in use
        current, ///< there is none
        stale, ///< the feed is validly signed but older than one that was seen before
        error
    };

    Status status = Status::error;
    Release release; ///< empty after an error
    QString
        message; ///< a sentence in the user's language when the feed is stale or the check failed
};

/// `inUse`: the version of the program. `seen`: the highest one that any validly signed feed had,
/// may be empty.
[[nodiscard]] CheckResult compareRelease(const Release &release, QStringView inUse,
                                         QStringView seen);

/// One JSON object on one line, with the members "status" (as the enumerator), "version",
/// "displayVersion", "link", "notes" and "message", all strings.
[[nodiscard]] QByteArray toJson(const CheckResult &result);

}
