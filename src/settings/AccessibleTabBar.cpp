// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/AccessibleTabBar.h"

#include <QTabBar>

namespace Tessel {

class AccessibleTabBar::Tab final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    Tab(QTabBar &bar, int index)
        : m_bar(bar)
        , m_index(index)
    {
    }

    [[nodiscard]] bool isValid() const override { return m_index < m_bar.count(); }
    [[nodiscard]] QObject *object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(&m_bar);
    }
    [[nodiscard]] QAccessibleInterface *child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *) const override { return -1; }

    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::PageTab; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? m_bar.tabText(m_index) : QString();
    }
    void setText(QAccessible::Text, const QString &) override { }
    [[nodiscard]] QRect rect() const override
    {
        const QRect tab = m_bar.tabRect(m_index);
        return { m_bar.mapToGlobal(tab.topLeft()), tab.size() };
    }
    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = parent()->state();
        const bool isCurrent = m_index == m_bar.currentIndex();
        state.selectable = true;
        state.selected = isCurrent;
        state.focused = isCurrent && m_bar.hasFocus();
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override { return { pressAction() }; }
    void doAction(const QString &) override { m_bar.setCurrentIndex(m_index); }
    [[nodiscard]] QStringList keyBindingsForAction(const QString &) const override { return {}; }

protected:
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }

private:
    QTabBar &m_bar;
    int m_index;
};

AccessibleTabBar::AccessibleTabBar(QTabBar *bar)
    : QAccessibleWidget(bar, QAccessible::PageTabList)
{
}

AccessibleTabBar::~AccessibleTabBar()
{
    for (const QAccessible::Id id : std::as_const(m_tabs))
        QAccessible::deleteAccessibleInterface(id);
}

QTabBar &AccessibleTabBar::bar() const
{
    return *static_cast<QTabBar *>(widget());
}

int AccessibleTabBar::childCount() const
{
    return bar().count();
}

QAccessibleInterface *AccessibleTabBar::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    QAccessible::Id &id = m_tabs[index];
    if (!id)
        id = QAccessible::registerAccessibleInterface(new Tab(bar(), index));
    return QAccessible::accessibleInterface(id);
}

int AccessibleTabBar::indexOfChild(const QAccessibleInterface *child) const
{
    return m_tabs.key(QAccessible::uniqueId(const_cast<QAccessibleInterface *>(child)), -1);
}

QString AccessibleTabBar::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? bar().tabText(bar().currentIndex())
                                     : QAccessibleWidget::text(kind);
}

QAccessibleInterface *AccessibleTabBar::focusChild() const
{
    return bar().hasFocus() ? child(bar().currentIndex()) : nullptr;
}

}
