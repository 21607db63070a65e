// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/TemplateButton.h"

#include "config/TemplateImage.h"

#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace Tessel {

TemplateButton::TemplateButton(const QImage &image, int extent, QWidget *parent)
    : QToolButton(parent)
    , m_image(image)
    , m_extent(extent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void TemplateButton::paintEvent(QPaintEvent *)
{
    QStyleOptionToolButton option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.drawPrimitive(QStyle::PE_PanelButtonTool, option);
    QRect place(0, 0, m_extent, m_extent);
    place.moveCenter(rect().center());
    painter.drawPixmap(place.topLeft(),
                       TemplateImage::tintedPixmap(m_image, palette().color(QPalette::ButtonText),
                                                   m_extent, devicePixelRatioF()));
}

}
