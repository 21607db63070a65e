// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "settings/IconCellDelegate.h"

#include "config/IconResolver.h"
#include "config/TemplateImage.h"
#include "windows/Theme.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr int iconExtent = 20;
constexpr double radius = CornerRadius::tile;

}

IconCellDelegate::IconCellDelegate(const IconResolver &icons, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_icons(icons)
{
}

void IconCellDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    QRect cell(QPoint(), cellSize);
    cell.moveCenter(option.rect.center());
    const bool isCurrent = option.state & QStyle::State_HasFocus;
    const bool isUnderPointer = option.state & QStyle::State_MouseOver;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(option.palette.color(isCurrent ? QPalette::Highlight : QPalette::Mid));
    painter->setBrush(isUnderPointer ? option.palette.alternateBase() : option.palette.button());
    painter->drawRoundedRect(QRectF(cell).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);

    QPixmap &pixmap = m_pixmaps[index.data().toString()];
    if (pixmap.isNull()) {
        const QImage image = m_icons.image(index.data().toString());
        if (image.isNull())
            return;
        pixmap = TemplateImage::tintedPixmap(image, option.palette.color(QPalette::ButtonText),
                                             iconExtent, painter->device()->devicePixelRatioF());
    }
    QRect place(0, 0, iconExtent, iconExtent);
    place.moveCenter(cell.center());
    painter->drawPixmap(place, pixmap);
}

QSize IconCellDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return cellSize;
}

bool IconCellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                 const QStyleOptionViewItem &, const QModelIndex &index)
{
    QToolTip::showText(event->globalPos(), index.data().toString().remove(u"phosphor_"_s), view);
    return true;
}

}
