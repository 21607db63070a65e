// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/ToolbarTabBar.h"

#include "config/TemplateImage.h"
#include "settings/AccessibleTabBar.h"
#include "windows/Theme.h"

#include <QPainter>

namespace Tessel {

namespace {

constexpr QSize minTabSize(84, 54);
constexpr int iconExtent = 24;
constexpr int iconTop = 6;
constexpr int textTop = iconTop + iconExtent + 2;
constexpr int textBottom = 3;
constexpr double radius = CornerRadius::tile;

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *bar = qobject_cast<ToolbarTabBar *>(object);
    return bar ? new AccessibleTabBar(bar) : nullptr;
}

}

ToolbarTabBar::ToolbarTabBar(QWidget *parent)
    : QTabBar(parent)
{
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setFocusPolicy(Qt::TabFocus);
    QAccessible::installFactory(makeInterface);
}

void ToolbarTabBar::addTab(const QImage &templateImage)
{
    m_images.append(templateImage);
    QTabBar::addTab(QString());
}

QSize ToolbarTabBar::tabSizeHint(int index) const
{
    const QFontMetrics metrics = fontMetrics();
    return minTabSize.expandedTo({ metrics.horizontalAdvance(tabText(index)) + 24,
                                   textTop + metrics.height() + textBottom });
}

void ToolbarTabBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < count(); ++i)
        drawTab(painter, i);
}

void ToolbarTabBar::drawTab(QPainter &painter, int index) const
{
    const QRect tab = tabRect(index);
    const bool isCurrent = index == currentIndex();
    const QColor accent = palette().color(QPalette::Highlight);
    if (isCurrent) {
        QColor ground = palette().color(QPalette::WindowText);
        ground.setAlphaF(0.08F);
        painter.setPen(hasFocus() ? QPen(accent, 1.5) : QPen(Qt::NoPen));
        painter.setBrush(ground);
        painter.drawRoundedRect(QRectF(tab).adjusted(3, 1, -3, -1), radius, radius);
    }
    const QColor color = isCurrent ? accent : palette().color(QPalette::PlaceholderText);
    painter.drawPixmap(
        tab.x() + (tab.width() - iconExtent) / 2, tab.y() + iconTop,
        TemplateImage::tintedPixmap(m_images[index], color, iconExtent, devicePixelRatioF()));
    painter.setPen(isCurrent ? palette().color(QPalette::WindowText) : color);
    painter.drawText(tab.adjusted(0, textTop, 0, -textBottom), Qt::AlignCenter, tabText(index));
}

}
