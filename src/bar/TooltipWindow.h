// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "windows/PopupWindow.h"
#include "windows/Theme.h"

namespace Tessel {

/// A dark bubble with an arrow that points down at a place on the screen. Clicks go through it.
class TooltipWindow final : public PopupWindow
{
    Q_OBJECT

public:
    /// Above `bar`, which is shown. `tip`: where the arrow points, in global logical pixels.
    TooltipWindow(PopupHost &host, QWindow *bar, const QString &text, QPoint tip,
                  const Theme::Bubble &theme);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] bool isCompositing() const { return m_margin > 0; }
    [[nodiscard]] QMargins margins() const;
    [[nodiscard]] QRectF box() const;
    [[nodiscard]] QPainterPath bubble() const;

    QString m_text;
    int m_margin; ///< around the bubble, for its shadow
    Theme::Bubble m_theme;
};

}
