// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsEffect>

/// Draws a widget scaled about the middle of its bar's bottom edge, while the bar pops in.
class PopEffect final : public QGraphicsEffect
{
    Q_OBJECT

public:
    using QGraphicsEffect::QGraphicsEffect;

    /// `anchor`: the fixed point, in the widget's logical pixels.
    void setScale(double scale, QPointF anchor);

protected:
    void draw(QPainter *painter) override;

private:
    double m_scale = 1;
    QPointF m_anchor;
};
