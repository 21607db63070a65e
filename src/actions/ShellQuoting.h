// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace Tessel {

/// Whether the text stays a text in a shell's command: each "{text}" stands between single quotes,
/// also those in "$(...)". Elsewhere (outside quotes, in double quotes, backquotes, comments,
/// here-documents, arithmetic) the shell would interpret it. The rules are those of POSIX.1-2017,
/// Shell Command Language, 2.2 to 2.7, with what zsh adds.
[[nodiscard]] bool isTextQuoted(QStringView commandTemplate);

}
