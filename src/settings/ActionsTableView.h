// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QTableView>

#include <optional>

namespace Tessel {

class ActionsHeaderView;
class ActionsModel;
class IconResolver;
class RowTextView;

/// The table in which the actions are edited. A click acts on check boxes, icons and menus, a
/// double click edits texts; Space or Return does either for the current cell. Scripts are edited
/// in a taller row. Rows are moved by dragging, or with Alt and the arrow keys.
class ActionsTableView final : public QTableView
{
    Q_OBJECT

public:
    ActionsTableView(ActionsModel *model, const IconResolver &icons, QWidget *parent = nullptr);

    void endEditing(); ///< stores what is being typed
    void selectRow(int row); ///< and makes it visible
    [[nodiscard]] std::optional<int> selectedRow() const;

Q_SIGNALS:
    void iconPickerRequested(int row, const QRect &cell); ///< in the viewport's coordinates

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                     const QList<int> &roles) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions supportedActions) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void activate(const QModelIndex &index);
    void activateTemplate(const QModelIndex &index);
    void editScript(int row);
    void collapse(const QModelIndex &cell, const RowTextView *editor);
    void openMenu(const QModelIndex &index);
    void moveCurrent(int dropRow);
    [[nodiscard]] std::optional<int> dropRowAt(const QDropEvent &event) const;
    void setDropRow(std::optional<int> row);

    ActionsModel *m_model;
    ActionsHeaderView *m_header;
    QPointer<RowTextView> m_scriptEditor;
    std::optional<int> m_dropRow;
    QPoint m_pointer; ///< in the viewport
};

}
