// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace Tessel {

/// A stretch of the regular expression (ICU's syntax, default options) that stands for itself and
/// is part of every match: a text without it needs no search. Empty when none is found, which says
/// nothing. A view of the expression; the expression need not be valid.
[[nodiscard]] QStringView requiredLiteral(QStringView expression);

}
