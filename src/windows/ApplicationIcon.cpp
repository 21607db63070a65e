// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "windows/ApplicationIcon.h"

#include "config/ResourceBundle.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr QSize iconSize(128, 128);
constexpr double artworkShare = 0.8;

QString resourceName(AppIconType type)
{
    switch (type) {
    case AppIconType::standard:
        return u"Logo_default-macOS-Dark-1024x1024@2x"_s;
    case AppIconType::light:
        return u"Logo_default-macOS-Light-1024x1024@2x"_s;
    case AppIconType::neon:
        break;
    }
    return u"Logo_default-macOS-Neon-1024x1024@2x"_s;
}

}

QImage resized(const QImage &image, QSize size)
{
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage applicationArtwork(AppIconType type, const ResourceBundle &bundle, QSize size, double share,
                          double scale)
{
    const QImage artwork = bundle.iconImage(resourceName(type));
    if (artwork.isNull())
        return {};
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QRectF place(QPointF(), QSizeF(image.size()) * share);
    place.moveCenter(QRectF(QPointF(), image.size()).center());
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, resized(artwork, image.size()));
    painter.end();
    image.setDevicePixelRatio(scale);
    return image;
}

QImage applicationIconImage(AppIconType type, const ResourceBundle &bundle)
{
    return applicationArtwork(type, bundle, iconSize, artworkShare);
}

void applyApplicationIcon(AppIconType type, const ResourceBundle &bundle)
{
    const QImage icon = applicationIconImage(type, bundle);
    if (!icon.isNull())
        QApplication::setWindowIcon(QIcon(QPixmap::fromImage(icon)));
}

}
