// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/CellField.h"

#include <QKeyEvent>

namespace Tessel {

void CellField::keyPressEvent(QKeyEvent *event)
{
    // Qt's line has no keys for the start and the end of a document.
    if (event->matches(QKeySequence::MoveToStartOfDocument))
        home(false);
    else if (event->matches(QKeySequence::MoveToEndOfDocument))
        end(false);
    else if (event->matches(QKeySequence::SelectStartOfDocument))
        home(true);
    else if (event->matches(QKeySequence::SelectEndOfDocument))
        end(true);
    else
        QLineEdit::keyPressEvent(event);
    event->accept();
}

}
