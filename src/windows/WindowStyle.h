// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QProxyStyle>

namespace Tessel {

class Appearance;
struct Theme;

/// The colours of our windows. PlaceholderText is for what is secondary, Mid for lines.
[[nodiscard]] QPalette windowPalette(const Theme &theme);

/// The look of our windows' controls: flat, round, in the colours of the palette.
class WindowStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    WindowStyle();

    /// Gives the look to all windows and keeps them as light or dark, and their texts as large, as
    /// the desktop has it. A style or theme that the user asks Qt for by its environment variables
    /// is left alone.
    static void apply(Appearance &appearance);

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget) const override;
    [[nodiscard]] QSize sizeFromContents(ContentsType type, const QStyleOption *option,
                                         const QSize &size, const QWidget *widget) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption *option,
                                  const QWidget *widget) const override;
    [[nodiscard]] int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                                QStyleHintReturn *returnData) const override;
    [[nodiscard]] QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                       SubControl subControl, const QWidget *widget) const override;
};

}
