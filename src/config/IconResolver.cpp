// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/IconResolver.h"

#include "config/ConfigManager.h"
#include "config/DefaultActions.h"
#include "config/ImageFile.h"
#include "config/ResourceBundle.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

/// The icon-set name for a system symbol, looked up without its variants ("star.circle",
/// "bell.fill") where the symbol itself has none.
QString iconForSymbol(QString symbol)
{
    static const QHash<QString, QString> further {
        { u"exclamationmark.triangle"_s, u"phosphor_warning"_s },
        { u"plus"_s, u"phosphor_plus"_s },
        { u"minus"_s, u"phosphor_minus"_s },
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
    return check(iconName) ? ownImage(iconName) : m_bundle.iconImage(u"phosphor_image-broken"_s);
}

Result<void> IconResolver::check(const QString &iconName) const
{
    if (!iconName.startsWith(ConfigManager::customIconPrefix) || !ownImage(iconName).isNull())
        return {};
    return Failure { m_config.getCustomIconURL(iconName) ? u"The image file cannot be read"_s
                                                         : u"The image file is missing"_s };
}

QImage IconResolver::ownImage(const QString &iconName) const
{
    if (const std::optional<QString> path = m_config.getCustomIconURL(iconName)) {
        const QString rendition = renditionPath(*path);
        QImage custom = customImage(QFileInfo::exists(rendition) ? rendition : *path);
        if (!custom.isNull())
            return custom;
    }
    QImage icon = m_bundle.iconImage(iconName);
    return icon.isNull() ? m_bundle.iconImage(iconForSymbol(iconName)) : icon;
}

QString IconResolver::renditionPath(const QString &path)
{
    return path + u".png"_s;
}

QImage IconResolver::customImage(const QString &path) const
{
    const QDateTime modified = QFileInfo(path).lastModified();
    CustomImage &custom = m_customImages[path];
    if (custom.modified != modified)
        custom = { modified, readImageFile(path, maxSide, ImageFormats::common) };
    return custom.image;
}

}
