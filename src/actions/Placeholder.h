// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace Tessel {

/// How the captured text gets into a template, for every kind of action.
namespace Placeholder {

/// Every "{text}" in the template becomes the value, in one pass.
[[nodiscard]] QString substitute(const QString &templateText, const QString &value);

/// Percent-encodes (RFC 3986) the UTF-8 form; characters that may stand in a query stay as they
/// are, among them & = + ?. Nothing when the text has an unpaired surrogate.
[[nodiscard]] std::optional<QString> percentEncodedForQuery(const QString &text);

/// For use between single quotes in a POSIX shell command.
[[nodiscard]] QString escapedForShell(const QString &text);

/// For use between double quotes in an AppleScript.
[[nodiscard]] QString escapedForAppleScript(const QString &text);

}

}
