// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/TooltipWindow.h"

#include "platform/PopupHost.h"
#include "windows/WindowShape.h"

#include <QPainter>

namespace Tessel {

namespace {

constexpr int arrowHeight = 6;
constexpr int arrowHalfWidth = 5;
constexpr QMargins padding(8, 4, 8, 4 + arrowHeight);

}

TooltipWindow::TooltipWindow(PopupHost &host, const QString &text, QPoint tip,
                             const Theme::Bubble &theme)
    : QWidget(nullptr,
              host.windowFlags() | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus)
    , m_text(text)
    , m_isCompositing(host.isCompositing())
    , m_theme(theme)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFont(sized(QFont(), FontSize::bubble));
    const QSize label = fontMetrics().size(Qt::TextSingleLine, text);
    const QSize size = label.grownBy(padding);
    setGeometry(QRect(QPoint(tip.x() - size.width() / 2, tip.y() - size.height()), size));
    winId();
    host.adopt(windowHandle());
    shapeWindow(*this, bubble(), m_isCompositing);
}

QPainterPath TooltipWindow::bubble() const
{
    const double middle = width() / 2.0;
    const double arrowTop = height() - arrowHeight;
    QPainterPath path = roundedRectangle(QRectF(0, 0, width(), arrowTop), CornerRadius::bubble);
    path.setFillRule(Qt::WindingFill);
    path.addPolygon(QPolygonF({ { middle - arrowHalfWidth, arrowTop },
                                { middle + arrowHalfWidth, arrowTop },
                                { middle, double(height()) } }));
    path.closeSubpath();
    return path.simplified();
}

void TooltipWindow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(bubble(), m_theme.ground.color(m_isCompositing));
    painter.setPen(m_theme.text);
    painter.drawText(rect().marginsRemoved(padding), Qt::AlignCenter | Qt::TextSingleLine, m_text);
}

}
