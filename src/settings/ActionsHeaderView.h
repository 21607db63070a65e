// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHeaderView>

namespace Tessel {

class ActionsModel;

/// The columns of the table of actions: some as wide as their contents, the others share what the
/// window is wider.
class ActionsHeaderView final : public QHeaderView
{
    Q_OBJECT

public:
    ActionsHeaderView(const ActionsModel &model, QWidget *parent);

    /// The first widths, for contents in this font.
    void layoutColumns(const QFontMetrics &contents);

    /// Makes the columns fill the width, without going below what each needs.
    void fit(int width);

private:
    [[nodiscard]] int labelWidth(int column) const;
    [[nodiscard]] int minWidth(int column) const;
    void widenForLabels();
    void distribute(int difference, int firstColumn);

    const ActionsModel &m_model;
    int m_width = 0; ///< to fill; 0: not known yet
    bool m_isFitting = false;
};

}
