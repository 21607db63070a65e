// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/TrayImage.h"

#include "config/ResourceBundle.h"
#include "config/TemplateImage.h"
#include "windows/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// The image with its contour, in a square of the given device pixels.
QPixmap outlined(const QImage &artwork, const QColor &color, const QColor &contour, int pixels)
{
    const int line = qMax(1, pixels / 22);
    const int extent = pixels - 2 * line;
    const QImage image = TemplateImage::tinted(artwork, color, extent);
    const QImage around = TemplateImage::tinted(artwork, contour, extent);
    const QPoint corner((pixels - image.width()) / 2, (pixels - image.height()) / 2);
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(0.75);
    for (const QPoint &offset :
         { QPoint(-line, 0), QPoint(line, 0), QPoint(0, -line), QPoint(0, line) })
        painter.drawImage(corner + offset, around);
    painter.setOpacity(1);
    painter.drawImage(corner, image);
    return pixmap;
}

}

QIcon trayIcon(const ResourceBundle &bundle, bool isDesktopDark)
{
    QImage artwork = bundle.iconImage(u"MenuBarIcon"_s);
    if (artwork.isNull())
        artwork = bundle.iconImage(u"phosphor_star"_s);
    const Theme::Tray &colors = themeFor(ThemeMode::system, isDesktopDark).tray;
    QIcon icon;
    for (const int pixels : { 22, 44 })
        icon.addPixmap(outlined(artwork, colors.image, colors.contour, pixels));
    return icon;
}

}
