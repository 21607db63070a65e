// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/AccessibleWindows.h"

#include <QAccessibleWidget>
#include <QWidget>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

struct WindowRole
{
    QStringView className;
    QAccessible::Role role;
};

constexpr WindowRole windowRoles[] = {
    { u"Tessel::AboutWindow", QAccessible::Dialog },
    { u"Tessel::ErrorPanel", QAccessible::AlertMessage },
    { u"Tessel::IconPickerViewController", QAccessible::Dialog },
    { u"Tessel::LargeTypeWindow", QAccessible::Notification },
    { u"Tessel::PanelWindow", QAccessible::Notification },
    { u"Tessel::UpdateWindow", QAccessible::Dialog },
};

QAccessibleInterface *makeInterface(const QString &className, QObject *object)
{
    const auto *known
        = std::find_if(std::begin(windowRoles), std::end(windowRoles),
                       [&](const WindowRole &window) { return window.className == className; });
    auto *widget = qobject_cast<QWidget *>(object);
    const bool isOurs = known != std::end(windowRoles) && widget;
    return isOurs ? new QAccessibleWidget(widget, known->role) : nullptr;
}

}

void describeWindowsToAssistiveTechnology()
{
    QAccessible::installFactory(makeInterface);
}

void announcePopup(QWidget &popup, const QString &description)
{
    if (!QAccessible::isActive())
        return;
    popup.setAccessibleDescription(description);
    QAccessibleEvent shown(&popup, QAccessible::ObjectShow); // which Qt leaves out for tool tips
    QAccessible::updateAccessibility(&shown);
}

}
