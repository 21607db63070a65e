// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "app/TrayImage.h"

#include "config/ResourceBundle.h"
#include "config/TemplateImage.h"
#include "windows/Theme.h"

#include <QIconEngine>
#include <QPainter>
#include <QStandardPaths>

#include <utility>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

const auto symbolicName = u"tessel-symbolic"_s;

/// An icon that knows its name in the icon theme without being looked up there, which takes longer
/// than the rest of the tray's item.
class NamedIcon final : public QIconEngine
{
public:
    explicit NamedIcon(QIcon icon)
        : m_icon(std::move(icon))
    {
    }

    [[nodiscard]] QIconEngine *clone() const override { return new NamedIcon(m_icon); }
    [[nodiscard]] QString iconName() override { return symbolicName; }
    [[nodiscard]] bool isNull() override { return m_icon.isNull(); }
    [[nodiscard]] QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return m_icon.availableSizes(mode, state);
    }
    [[nodiscard]] QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return m_icon.pixmap(size, mode, state);
    }
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        m_icon.paint(painter, rect, Qt::AlignCenter, mode, state);
    }

private:
    QIcon m_icon;
};

/// The image in a square of the given device pixels, with its contour if that has a colour.
QPixmap drawn(const QImage &artwork, const Theme::Tray &colors, int pixels)
{
    const int line = colors.contour.isValid() ? qMax(1, pixels / 22) : 0;
    const int extent = pixels - 2 * line;
    const QImage image = TemplateImage::tinted(artwork, colors.image, extent);
    const QPoint corner((pixels - image.width()) / 2, (pixels - image.height()) / 2);
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    if (line > 0) {
        const QImage around = TemplateImage::tinted(artwork, colors.contour, extent);
        painter.setOpacity(0.75);
        for (const QPoint &offset :
             { QPoint(-line, 0), QPoint(line, 0), QPoint(0, -line), QPoint(0, line) })
            painter.drawImage(corner + offset, around);
        painter.setOpacity(1);
    }
    painter.drawImage(corner, image);
    return pixmap;
}

bool isInstalled(const QString &symbolicIcon)
{
    return !QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                   u"icons/hicolor/symbolic/apps/%1.svg"_s.arg(symbolicIcon))
                .isEmpty();
}

}

QIcon trayIcon(const ResourceBundle &bundle, bool isDesktopDark, std::optional<QRgb> color)
{
    QImage artwork = bundle.iconImage(u"MenuBarIcon"_s);
    if (artwork.isNull())
        artwork = bundle.iconImage(u"phosphor_star"_s);
    const Theme::Tray colors
        = color ? Theme::Tray { *color, {} } : themeFor(ThemeMode::system, isDesktopDark).tray;
    QIcon icon;
    for (const int pixels : { 16, 22, 44 })
        icon.addPixmap(drawn(artwork, colors, pixels));
    return isInstalled(symbolicName) ? QIcon(new NamedIcon(icon)) : icon;
}

}
