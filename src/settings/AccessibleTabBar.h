// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>
#include <QHash>

class QTabBar;

namespace Tessel {

/// A row of tabs for assistive technology. Qt's own, as of 6.4, calls the current tab focused
/// instead of selected, and has buttons for scrolling that nobody sees.
class AccessibleTabBar final : public QAccessibleWidget
{
public:
    explicit AccessibleTabBar(QTabBar *bar);
    ~AccessibleTabBar() override;
    Q_DISABLE_COPY_MOVE(AccessibleTabBar)

    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface *child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
    [[nodiscard]] QAccessibleInterface *focusChild() const override;
    [[nodiscard]] QString text(QAccessible::Text kind) const override;

private:
    class Tab;

    [[nodiscard]] QTabBar &bar() const;

    mutable QHash<int, QAccessible::Id> m_tabs; ///< those that were asked for
};

}
