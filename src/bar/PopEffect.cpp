// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "bar/PopEffect.h"

#include <QPainter>

namespace Tessel {

void PopEffect::setAnchor(QPointF anchor)
{
    m_anchor = anchor;
}

void PopEffect::setScale(double scale)
{
    m_scale = scale;
    changed();
}

void PopEffect::setOpacity(double opacity)
{
    m_opacity = opacity;
    changed();
}

/// Switched off at rest, where it would only cost a copy.
void PopEffect::changed()
{
    setEnabled(m_scale != 1 || m_opacity != 1);
    update();
}

void PopEffect::draw(QPainter *painter)
{
    QPoint offset;
    const QPixmap source = sourcePixmap(Qt::LogicalCoordinates, &offset, NoPad);
    painter->save();
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->setOpacity(m_opacity);
    painter->translate(m_anchor);
    painter->scale(m_scale, m_scale);
    painter->translate(-m_anchor);
    painter->drawPixmap(offset, source);
    painter->restore();
}

}
