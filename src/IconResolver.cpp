// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "IconResolver.h"

#include "ConfigManager.h"
#include "DefaultActions.h"
#include "ResourceBundle.h"

#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace {

/// Larger files are not read: a PNG of this size takes half a second.
constexpr qint64 mostPixels = qint64 { 4096 } * 4096;

/// Reads an image in at most the given size, or null.
QImage readScaled(const QString &path, int longestSide)
{
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64 { size.width() } * size.height() > mostPixels)
        return {};
    if (std::max(size.width(), size.height()) > longestSide) {
        const QSize scaled = size.scaled(longestSide, longestSide, Qt::KeepAspectRatio);
        reader.setScaledSize(scaled.expandedTo({ 1, 1 }));
    }
    return reader.read();
}

/// The icon-set name for a system symbol, looked up without its variants ("star.circle",
/// "bell.fill") where the symbol itself has none.
QString iconForSymbol(QString symbol)
{
    static const QHash<QString, QString> further {
        { QStringLiteral("exclamationmark.triangle"), QStringLiteral("phosphor_warning") },
        { QStringLiteral("plus"), QStringLiteral("phosphor_plus") },
        { QStringLiteral("minus"), QStringLiteral("phosphor_minus") },
    };
    while (true) {
        QString icon = further.value(symbol, DefaultActions::renamedIcon(symbol));
        const qsizetype dot = symbol.lastIndexOf(u'.');
        if (icon != symbol || dot < 0)
            return icon;
        symbol.truncate(dot);
    }
}

}

IconResolver::IconResolver(const ConfigManager &config, const ResourceBundle &bundle)
    : m_config(config)
    , m_bundle(bundle)
{
}

QImage IconResolver::image(const QString &iconName) const
{
    if (const std::optional<QString> path = m_config.getCustomIconURL(iconName)) {
        QImage custom = customImage(*path);
        if (!custom.isNull())
            return custom;
    }
    QImage icon = m_bundle.iconImage(iconName);
    return icon.isNull() ? m_bundle.iconImage(iconForSymbol(iconName)) : icon;
}

QImage IconResolver::customImage(const QString &path) const
{
    const QDateTime modified = QFileInfo(path).lastModified();
    CustomImage &custom = m_customImages[path];
    if (custom.modified != modified)
        custom = { modified, readScaled(path, longestSide) };
    return custom.image;
}
