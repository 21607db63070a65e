// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

class QAbstractItemView;
class QAccessibleInterface;

namespace Tessel {

/// What Qt's item views, as of 6.4, do not tell assistive technology.
namespace AccessibleCells {

/// The current cell of the view; null when there is none, or nobody who asks.
[[nodiscard]] QAccessibleInterface *current(QAbstractItemView &view);

/// Has the current cell read out when the view gets the focus: Qt calls the view focused last, and
/// nothing would be heard of the cell.
void readOnFocus(QAbstractItemView *view);

}

}
