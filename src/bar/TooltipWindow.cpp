// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/TooltipWindow.h"

#include "bar/Shadow.h"
#include "platform/PopupHost.h"
#include "windows/WindowShape.h"

#include <QPainter>
#include <QWindow>

namespace Tessel {

namespace {

constexpr int arrowHeight = 6;
constexpr int arrowHalfWidth = 5;
constexpr QMargins padding(8, 4, 8, 4 + arrowHeight);
constexpr int shadowDepth = 8;

}

TooltipWindow::TooltipWindow(PopupHost &host, QWindow *bar, const QString &text, QPoint tip,
                             const Theme::Bubble &theme)
    : PopupWindow(host, Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus)
    , m_text(text)
    , m_margin(host.isCompositing() ? shadowDepth + shadowDrop : 0)
    , m_theme(theme)
{
    setFont(sized(QFont(), FontSize::bubble));
    const QSize label = fontMetrics().size(Qt::TextSingleLine, text);
    const QSize size = label.grownBy(padding);
    setGeometry(QRect(QPoint(tip.x() - size.width() / 2, tip.y() - size.height()), size)
                    .marginsAdded(margins()));
    makeNative();
    windowHandle()->setTransientParent(bar);
    shapeWindow(*this, bubble(), isCompositing());
}

QMargins TooltipWindow::margins() const
{
    return { m_margin, m_margin, m_margin, m_margin };
}

/// The bubble without its arrow.
QRectF TooltipWindow::box() const
{
    return QRectF(rect().marginsRemoved(margins())).adjusted(0, 0, 0, -arrowHeight);
}

QPainterPath TooltipWindow::bubble() const
{
    const double middle = width() / 2.0;
    const double arrowTop = box().y() + box().height();
    QPainterPath path = roundedRectangle(box(), CornerRadius::bubble);
    path.setFillRule(Qt::WindingFill);
    path.addPolygon(QPolygonF({ { middle - arrowHalfWidth, arrowTop },
                                { middle + arrowHalfWidth, arrowTop },
                                { middle, arrowTop + arrowHeight } }));
    path.closeSubpath();
    return path.simplified();
}

void TooltipWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isCompositing())
        painter.drawImage(0, 0,
                          shadowAround(box(), CornerRadius::bubble, shadowDepth, m_theme.shadow,
                                       size(), devicePixelRatioF()));
    painter.fillPath(bubble(), m_theme.ground.color(isCompositing()));
    painter.setPen(m_theme.text);
    painter.drawText(rect().marginsRemoved(margins() + padding),
                     Qt::AlignCenter | Qt::TextSingleLine, m_text);
}

}
