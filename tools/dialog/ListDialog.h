// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "lib/Host.h"

#include <QDialog>

class QListWidget;

namespace Tessel {

/// Items to choose from. Return and a double click take the selection, Escape cancels.
class ListDialog final : public QDialog
{
    Q_OBJECT

public:
    explicit ListDialog(const Osascript::ListRequest &request);

Q_SIGNALS:
    /// Once, with the positions of the chosen items in their order, or nothing.
    void answered(const std::optional<QList<int>> &chosen);

private:
    [[nodiscard]] QListWidget *list(const Osascript::ListRequest &request) const;
    [[nodiscard]] QList<int> selection() const;

    QListWidget *m_list;
};

}
