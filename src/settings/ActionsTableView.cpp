// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ActionsTableView.h"

#include "settings/AccessibleCells.h"
#include "settings/ActionEditing.h"
#include "settings/ActionsDelegate.h"
#include "settings/ActionsHeaderView.h"
#include "settings/ActionsModel.h"
#include "settings/RowTextView.h"
#include "windows/Theme.h"

#include <QAccessible>
#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int plainRowHeight = 30;
constexpr int expandedRowHeight = 100;
constexpr int minHeight = 130; ///< a script with the header
constexpr int pictureDistance = 14;
const QString dragType = u"application/x-tessel-action-row"_s;

}

ActionsTableView::ActionsTableView(ActionsModel *model, const IconResolver &icons, QWidget *parent)
    : QTableView(parent)
    , m_model(model)
    , m_header(new ActionsHeaderView(*model, this))
{
    setModel(model);
    AccessibleCells::readOnFocus(this);
    setItemDelegate(new ActionsDelegate(icons, this));
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    setWordWrap(false);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setMinimumHeight(minHeight);
    setDragEnabled(true);
    setAcceptDrops(true);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(roomFor(plainRowHeight));
    verticalHeader()->setDefaultSectionSize(roomFor(plainRowHeight));
    setHorizontalHeader(m_header);
    m_header->setSectionsClickable(false);
    m_header->layoutColumns(fontMetrics());
    connect(this, &QAbstractItemView::clicked, this, [this](const QModelIndex &index) {
        if (!index.flags().testFlag(Qt::ItemIsEditable))
            activate(index);
    });
    connect(this, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        // The second of two quick clicks makes no further click.
        if (index.flags().testFlag(Qt::ItemIsEditable)
            || index.column() == ActionsModel::enabledColumn)
            activate(index);
    });
}

void ActionsTableView::changeEvent(QEvent *event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        m_header->layoutColumns(fontMetrics());
}

void ActionsTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    m_header->fit(viewport()->width());
}

/// Qt announces no changes in cells. One is told about the cell that was read out last.
void ActionsTableView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                   const QList<int> &roles)
{
    QTableView::dataChanged(topLeft, bottomRight, roles);
    const QModelIndex current = currentIndex();
    QAccessibleInterface *cell = AccessibleCells::current(*this);
    if (!cell || !QItemSelectionRange(topLeft, bottomRight).contains(current))
        return;
    QAccessibleEvent renamed(cell, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
    if (current.column() != ActionsModel::enabledColumn)
        return;
    QAccessible::State change;
    change.checked = true;
    QAccessibleStateChangeEvent toggled(cell, change);
    QAccessible::updateAccessibility(&toggled);
}

void ActionsTableView::activate(const QModelIndex &index)
{
    if (!m_model->action(index.row()))
        return;
    switch (index.column()) {
    case ActionsModel::enabledColumn:
        return m_model->toggle(index.row());
    case ActionsModel::iconColumn:
        Q_EMIT iconPickerRequested(index.row(), visualRect(index));
        return;
    case ActionsModel::typeColumn:
        return openMenu(index);
    case ActionsModel::templateColumn:
        return activateTemplate(index);
    default:
        edit(index);
    }
}

void ActionsTableView::activateTemplate(const QModelIndex &index)
{
    switch (infoOf(m_model->action(index.row())->type).editor) {
    case TemplateEditor::line:
        edit(index);
        break;
    case TemplateEditor::script:
        editScript(index.row());
        break;
    case TemplateEditor::menu:
        openMenu(index);
        break;
    }
}

/// The choices of a type or builtin cell, the current one checked and under the pointer.
void ActionsTableView::openMenu(const QModelIndex &index)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QPersistentModelIndex cell(index);
    const auto add = [&](const QString &title, auto &&choose) {
        QAction *choice = menu->addAction(title);
        choice->setCheckable(title == index.data().toString());
        choice->setChecked(choice->isCheckable());
        connect(choice, &QAction::triggered, this, [cell, choose] {
            if (cell.isValid())
                choose(cell.row());
        });
        if (choice->isChecked())
            menu->setActiveAction(choice);
    };
    if (index.column() == ActionsModel::typeColumn) {
        for (const ActionTypeInfo &info : actionTypes())
            add(info.rawValue, [this, type = info.type](int row) { m_model->setType(row, type); });
    } else {
        for (const QStringView builtin : Builtin::all) {
            const QString name = builtin.toString();
            add(name, [this, name](int row) { m_model->setTemplate(row, name); });
        }
    }
    const QRect button = ActionsDelegate::buttonRect(visualRect(index));
    menu->setMinimumWidth(button.width());
    menu->popup(viewport()->mapToGlobal(QPoint(button.x(), button.y() + button.height() + 2)));
}

void ActionsTableView::editScript(int row)
{
    const QPersistentModelIndex cell = m_model->index(row, ActionsModel::templateColumn);
    if (m_scriptEditor && indexWidget(cell) == m_scriptEditor)
        return;
    endEditing();
    setRowHeight(row, roomFor(expandedRowHeight));
    const QPointer editor = new RowTextView(m_model->action(row)->templateText);
    editor->setAccessibleName(
        m_model->headerData(cell.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    setIndexWidget(cell, editor);
    m_scriptEditor = editor;
    editor->setFocus(); // at once: what is typed from now on is for it
    connect(editor, &RowTextView::editingEnded, this, [this, cell, editor](const QString &text) {
        m_scriptEditor = nullptr;
        m_model->setTemplate(cell.row(), text);
        // Rows must not move before the click, or double click, that ended it has found its own.
        const bool isClick = QGuiApplication::mouseButtons() != Qt::NoButton;
        QTimer::singleShot(isClick ? QApplication::doubleClickInterval() : 0, this,
                           [this, cell, editor] { collapse(cell, editor); });
    });
    editor->moveCursor(QTextCursor::Start);
    QTimer::singleShot(0, editor, [this, cell] { // when the row has its height
        scrollTo(cell);
    });
}

void ActionsTableView::collapse(const QModelIndex &cell, const RowTextView *editor)
{
    if (!cell.isValid() || !editor || indexWidget(cell) != editor)
        return;
    const bool hadFocus = editor->hasFocus();
    setIndexWidget(cell, nullptr);
    setRowHeight(cell.row(), roomFor(plainRowHeight));
    if (hadFocus)
        setFocus();
}

void ActionsTableView::endEditing()
{
    if (m_scriptEditor)
        m_scriptEditor->endEditing();
    if (state() == EditingState)
        setFocus(); // a field that loses the focus stores its text
}

std::optional<int> ActionsTableView::selectedRow() const
{
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? std::nullopt : std::optional(rows.first().row());
}

void ActionsTableView::selectRow(int row)
{
    const QModelIndex cell = m_model->index(row, ActionsModel::titleColumn);
    setCurrentIndex(cell);
    scrollTo(cell);
}

void ActionsTableView::keyPressEvent(QKeyEvent *event)
{
    const bool isMove = event->modifiers() == Qt::AltModifier;
    const int row = currentIndex().row();
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        return activate(currentIndex());
    case Qt::Key_Up:
        if (isMove)
            return moveCurrent(row - 1);
        break;
    case Qt::Key_Down:
        if (isMove)
            return moveCurrent(row + 2);
        break;
    default:
        break;
    }
    QTableView::keyPressEvent(event);
}

void ActionsTableView::moveCurrent(int dropRow)
{
    if (m_model->move(currentIndex().row(), dropRow))
        scrollTo(currentIndex());
}

void ActionsTableView::mouseMoveEvent(QMouseEvent *event)
{
    m_pointer = event->position().toPoint();
    QTableView::mouseMoveEvent(event); // which may start the drag
}

void ActionsTableView::startDrag(Qt::DropActions)
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return;
    QRect row = visualRect(m_model->index(current.row(), 0));
    row.setRect(0, row.y(), viewport()->width(), row.height());
    auto *content = new QMimeData;
    content->setData(dragType, ActionEditing::draggedRow(current.row()));
    auto *drag = new QDrag(this);
    drag->setMimeData(content);
    drag->setPixmap(viewport()->grab(row));
    // Below the pointer, or it would hide the mark of where the row would go.
    drag->setHotSpot({ m_pointer.x(), -pictureDistance });
    drag->exec(Qt::MoveAction);
}

/// Between which rows the drag is; nothing for what does not come from this table.
std::optional<int> ActionsTableView::dropRowAt(const QDropEvent &event) const
{
    if (event.source() != this || !event.mimeData()->hasFormat(dragType))
        return {};
    const QPoint place = event.position().toPoint();
    const int row = rowAt(place.y());
    if (row < 0)
        return m_model->rowCount();
    const auto dropRow = ActionEditing::dropRow(row, place.y() - rowViewportPosition(row),
                                                QTableView::rowHeight(row));
    return dropRow ? std::optional(int(*dropRow)) : std::nullopt;
}

void ActionsTableView::setDropRow(std::optional<int> row)
{
    m_dropRow = row;
    viewport()->update();
}

void ActionsTableView::dragEnterEvent(QDragEnterEvent *event)
{
    dragMoveEvent(event);
    if (event->source() == this)
        event->accept(); // else no further moves would come
}

void ActionsTableView::dragMoveEvent(QDragMoveEvent *event)
{
    QTableView::dragMoveEvent(event); // scrolls at the edges
    setDropRow(dropRowAt(*event));
    event->setAccepted(m_dropRow.has_value());
    if (m_dropRow)
        event->setDropAction(Qt::MoveAction);
}

void ActionsTableView::dragLeaveEvent(QDragLeaveEvent *event)
{
    QTableView::dragLeaveEvent(event);
    setDropRow({});
}

void ActionsTableView::dropEvent(QDropEvent *event)
{
    const auto dropRow = dropRowAt(*event);
    const auto source = ActionEditing::rowFromDragged(event->mimeData()->data(dragType));
    setDropRow({});
    stopAutoScroll();
    setState(NoState);
    event->setAccepted(dropRow && source && m_model->move(int(*source), *dropRow));
}

/// Marks the gap that a dragged row would go to.
void ActionsTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (!m_dropRow)
        return;
    const int last = m_model->rowCount() - 1;
    const int y = *m_dropRow <= last ? rowViewportPosition(*m_dropRow)
                                     : rowViewportPosition(last) + QTableView::rowHeight(last);
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.setBrush(palette().base());
    const double line = std::max(y, 4);
    painter.drawLine(QPointF(9, line), QPointF(viewport()->width() - 4, line));
    painter.drawEllipse(QPointF(6, line), 3, 3);
}

}
