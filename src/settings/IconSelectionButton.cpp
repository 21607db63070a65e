// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/IconSelectionButton.h"

#include "config/TemplateImage.h"
#include "windows/Theme.h"

#include <QPainter>

#include <cmath>

namespace Tessel {

namespace {

constexpr int inset = 12;
constexpr double radius = CornerRadius::picture;
constexpr int glow = 10; ///< reach of the shadow, whose blur is twice as wide

/// The rectangle with a shadow of its own colour around it.
void drawGlowingRectangle(QPainter *painter, const QRectF &rect, const QColor &color)
{
    painter->setPen(Qt::NoPen);
    for (int reach = glow; reach > 0; --reach) {
        QColor ring = color;
        const double distance = double(reach) / glow;
        ring.setAlphaF(float(0.3 * std::pow(1 - distance, 1.5)));
        painter->setBrush(ring);
        painter->drawRoundedRect(rect.adjusted(-reach, -reach, reach, reach), radius + reach,
                                 radius + reach);
    }
    painter->setBrush(color);
    painter->drawRoundedRect(rect, radius, radius);
}

}

IconSelectionButton::IconSelectionButton(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::StrongFocus);
    setFixedSize(sizeHint());
}

void IconSelectionButton::setPicture(const QPixmap &picture)
{
    m_picture = picture;
    update();
}

void IconSelectionButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QColor accent = palette().color(QPalette::Highlight);
    if (isSelectedIcon())
        drawGlowingRectangle(&painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset),
                             accent);
    TemplateImage::drawCentred(painter, m_picture, rect());
    if (isDown()) {
        QColor shade = palette().color(QPalette::Shadow);
        shade.setAlpha(25);
        painter.fillRect(rect(), shade);
    }
    if (hasFocus()) {
        painter.setPen(QPen(accent, 2));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), radius, radius);
    }
}

}
