// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel::Osascript {

/// The lines of a note's body, which is HTML, without a line break at the end.
///
/// A body of the form `<html><body>…</body></html>` is taken for text that a script has put in
/// there unescaped, as scripts do that join lines with `<br>`: only `<br>` is a tag in it, and
/// everything else stands for itself, so that "a < b && c", "<T>" and "&amp;" come out as they went
/// in. In any other body the well-known tags of HTML are left out, those of blocks (`<div>`, `<p>`,
/// `<li>`, `<h1>` …) end lines, and well-known entities are characters; a `<` or `&` that starts
/// neither stands for itself.
[[nodiscard]] QString noteText(const QString &body);

/// A file name for a note of this title: no character that a file system or a shell takes amiss, at
/// most 120 bytes, never empty, never hidden.
[[nodiscard]] QString noteFileName(const QString &title);

}
