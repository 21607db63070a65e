// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/TooltipWindow.h"

#include "platform/PopupHost.h"

#include <QPainter>
#include <QPainterPath>

namespace Tessel {

namespace {

constexpr int arrowHeight = 6;
constexpr int arrowHalfWidth = 5;
constexpr int cornerRadius = 4;
constexpr int fontSize = 11;
constexpr QMargins padding(8, 4, 8, 4 + arrowHeight);

QFont bubbleFont()
{
    QFont font;
    font.setPixelSize(fontSize);
    return font;
}

}

TooltipWindow::TooltipWindow(PopupHost &host, const QString &text, QPoint tip)
    : QWidget(nullptr,
              host.windowFlags() | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus)
    , m_text(text)
    , m_isCompositing(host.isCompositing())
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFont(bubbleFont());
    const QSize label = fontMetrics().size(Qt::TextSingleLine, text);
    const QSize size = label.grownBy(padding);
    setGeometry(QRect(QPoint(tip.x() - size.width() / 2, tip.y() - size.height()), size));
    winId();
    host.adopt(windowHandle());
    if (!m_isCompositing)
        setMask(QRegion(bubble().toFillPolygon().toPolygon()));
}

QPainterPath TooltipWindow::bubble() const
{
    const double middle = width() / 2.0;
    const double arrowTop = height() - arrowHeight;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRoundedRect(QRectF(0, 0, width(), arrowTop), cornerRadius, cornerRadius);
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
    painter.fillPath(bubble(), m_isCompositing ? QColor(0, 0, 0, 217) : QColor(30, 30, 30));
    painter.setPen(Qt::white);
    painter.drawText(rect().marginsRemoved(padding), Qt::AlignCenter | Qt::TextSingleLine, m_text);
}

}
