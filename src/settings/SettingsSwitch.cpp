// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/SettingsSwitch.h"

#include <QPainter>

namespace Tessel {

SettingsSwitch::SettingsSwitch(QWidget *parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SettingsSwitch::sizeHint() const
{
    return { 40, 24 };
}

void SettingsSwitch::paintEvent(QPaintEvent *)
{
    const QRectF groove = QRectF(rect()).adjusted(3, 3, -3, -3);
    const double round = groove.height() / 2;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
        painter.drawRoundedRect(groove.adjusted(-2, -2, 2, 2), round + 2, round + 2);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(isChecked() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRoundedRect(groove, round, round);
    QRectF knob(0, 0, groove.height() - 4, groove.height() - 4);
    knob.moveCenter({ isChecked() ? groove.x() + groove.width() - round : groove.x() + round,
                      groove.center().y() });
    painter.setBrush(palette().color(QPalette::HighlightedText));
    painter.drawEllipse(knob);
}

}
