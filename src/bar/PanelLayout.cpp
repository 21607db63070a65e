// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PanelLayout.h"

#include <QStringView>

#include <algorithm>

namespace Tessel {

namespace {

using PanelLayout::windowMargin;

constexpr int spacing = 2; // between the buttons of a row, and between rows
constexpr int leftInset = 12; // from the bar's edges to its buttons
constexpr int rightInset = 8;
constexpr int topInset = 8;
constexpr int bottomInset = 8;

constexpr int distanceAbove = 10; // from the pointer up to the bar
constexpr int distanceBelow = 30; // from the pointer down to the window
constexpr int headroom = windowMargin + 10; // from the top of the screen down to the window

constexpr QStringView shortcuts = u"12345QWERTASDFGZXCVB";

}

PanelLayout::Layout PanelLayout::arrange(const QList<int> &buttonWidths)
{
    QList<QRect> buttons;
    QSize content(0, 0);
    QPoint corner(0, 0);
    for (qsizetype i = 0; i < buttonWidths.size(); ++i) {
        if (i > 0 && i % buttonsPerRow == 0)
            corner = QPoint(0, content.height() + spacing);
        buttons.append(QRect(corner, QSize(buttonWidths[i], buttonSize)));
        corner.rx() += buttonWidths[i];
        content = content.expandedTo(QSize(corner.x(), corner.y() + buttonSize));
        corner.rx() += spacing;
    }

    const QSize bar = content.grownBy({ leftInset, topInset, rightInset, bottomInset });
    const QSize window = bar.grownBy(barMargins);
    const QPoint barCorner(barMargins.left(), barMargins.top());
    for (QRect &button : buttons)
        button.translate(barCorner + QPoint(leftInset, topInset));
    return { window, QRect(barCorner, bar), buttons };
}

QPoint PanelLayout::place(QPoint pointer, QSize window, const std::optional<QRect> &visibleFrame)
{
    QPoint corner(pointer.x() - window.width() / 2,
                  pointer.y() - distanceAbove + windowMargin - window.height());
    if (!visibleFrame)
        return corner;
    const int left = visibleFrame->x() - windowMargin;
    const int right = visibleFrame->x() + visibleFrame->width() + windowMargin;
    // In this order: a bar wider than the screen keeps its right end visible.
    corner.setX(std::min(std::max(corner.x(), left), right - window.width()));
    if (corner.y() < visibleFrame->y() + headroom)
        corner.setY(pointer.y() + distanceBelow);
    return corner;
}

char PanelLayout::shortcutCharacter(int button)
{
    return button >= 0 && button < shortcuts.size() ? shortcuts[button].toLatin1() : '\0';
}

std::optional<int> PanelLayout::buttonForCharacter(QChar character)
{
    const qsizetype button = shortcuts.indexOf(character);
    return button < 0 ? std::nullopt : std::optional(static_cast<int>(button));
}

}
