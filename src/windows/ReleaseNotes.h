// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel {

/// What a person reads of a text from a feed that may be HTML: no tags, no scripts, no control or
/// direction-changing characters, no runs of empty lines; line breaks of plain text stay. At most
/// 20,000 characters.
[[nodiscard]] QString plainText(QString text);

}
