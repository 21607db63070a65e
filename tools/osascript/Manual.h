// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace Tessel::Osascript {

/// What the runner understands, as Markdown, made from the tables that the parser reads.
[[nodiscard]] QString manual();

}
