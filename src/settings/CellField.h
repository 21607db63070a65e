// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace Tessel {

/// The field in which a cell of a table is edited. What it does not know itself it keeps from the
/// table, which else would go to another cell and close the field.
class CellField final : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

}
