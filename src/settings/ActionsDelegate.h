// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPixmap>
#include <QStyledItemDelegate>

namespace Tessel {

class IconResolver;

/// Draws the cells of the table of actions, and edits those that hold one line of text.
class ActionsDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Borrows the icons.
    explicit ActionsDelegate(const IconResolver &icons, QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

    /// Where a menu of the cell opens, and what is drawn as a button.
    [[nodiscard]] static QRect buttonRect(const QRect &cell);

    /// The width that a button with this title needs.
    [[nodiscard]] static int buttonWidth(const QFontMetrics &metrics, const QString &title);

private:
    void paintCheckBox(QPainter *painter, const QStyleOptionViewItem &option, bool isOn) const;
    void paintIcon(QPainter *painter, const QStyleOptionViewItem &option,
                   const QString &name) const;
    void paintButton(QPainter *painter, const QStyleOptionViewItem &option,
                     const QString &title) const;
    void paintText(QPainter *painter, const QStyleOptionViewItem &option,
                   const QModelIndex &index) const;

    const IconResolver &m_icons;
    mutable QHash<QString, QPixmap> m_pixmaps; ///< by name and colour
};

}
