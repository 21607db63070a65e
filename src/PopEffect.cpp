// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "PopEffect.h"

#include <QPainter>

void PopEffect::setScale(double scale, QPointF anchor)
{
    m_scale = scale;
    m_anchor = anchor;
    update();
}

void PopEffect::draw(QPainter *painter)
{
    QPoint offset;
    const QPixmap source = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->translate(m_anchor);
    painter->scale(m_scale, m_scale);
    painter->translate(-m_anchor);
    painter->drawPixmap(offset, source);
    painter->restore();
}
