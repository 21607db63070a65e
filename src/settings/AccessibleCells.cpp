// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/AccessibleCells.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QTimer>

namespace Tessel {

namespace {

class FocusReader final : public QObject
{
public:
    explicit FocusReader(QAbstractItemView *view)
        : QObject(view)
        , m_view(*view)
    {
        view->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn && QAccessible::isActive())
            QTimer::singleShot(0, this, [this] { read(); }); // behind Qt's own
        return QObject::eventFilter(watched, event);
    }

private:
    void read()
    {
        QAccessibleInterface *cell = AccessibleCells::current(m_view);
        if (!cell || !m_view.hasFocus())
            return;
        QAccessibleEvent focused(cell, QAccessible::Focus);
        QAccessible::updateAccessibility(&focused);
    }

    QAbstractItemView &m_view;
};

}

QAccessibleInterface *AccessibleCells::current(QAbstractItemView &view)
{
    const QModelIndex index = view.currentIndex();
    if (!QAccessible::isActive() || !index.isValid())
        return nullptr;
    QAccessibleInterface *table = QAccessible::queryAccessibleInterface(&view);
    return table->tableInterface()->cellAt(index.row(), index.column());
}

void AccessibleCells::readOnFocus(QAbstractItemView *view)
{
    new FocusReader(view);
}

}
