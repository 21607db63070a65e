// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPixmap>
#include <QStyledItemDelegate>

namespace Tessel {

class IconResolver;

/// Draws the cells of a grid of icons, given by their names. Images are decoded when they are first
/// seen.
class IconCellDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr QSize cellSize { 40, 40 };
    static constexpr QSize gridSize { 45, 45 };

    /// Borrows the icons.
    explicit IconCellDelegate(const IconResolver &icons, QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

private:
    const IconResolver &m_icons;
    mutable QHash<QString, QPixmap> m_pixmaps;
};

}
