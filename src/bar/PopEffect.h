// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QGraphicsEffect>

namespace Tessel {

/// Draws a widget scaled about a point and translucent, while the bar pops in and fades. Does so in
/// the widget's own pixels: not every platform can change the opacity of a window.
class PopEffect final : public QGraphicsEffect
{
    Q_OBJECT

public:
    using QGraphicsEffect::QGraphicsEffect;

    /// The point that stays in place, in the widget's logical pixels.
    void setAnchor(QPointF anchor);
    void setScale(double scale);
    void setOpacity(double opacity);
    [[nodiscard]] double opacity() const { return m_opacity; }

protected:
    void draw(QPainter *painter) override;

private:
    void changed();

    QPointF m_anchor;
    double m_scale = 1;
    double m_opacity = 1;
};

}
