// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "base/Result.h"

#include <QDateTime>
#include <QHash>
#include <QImage>
#include <QString>

namespace Tessel {

class ConfigManager;
class ResourceBundle;

/// Finds the image of an action's icon. Main thread only.
class IconResolver final
{
public:
    /// Longest side of an image made from a user's file, in pixels.
    static constexpr int maxSide = 128;

    /// Borrows both.
    explicit IconResolver(const ConfigManager &config, const ResourceBundle &bundle);

    /// The user's image file for a "custom:" name, else the image of the icon set, else the icon
    /// that stands for the system symbol of that name. Where there is none, a "custom:" name gets
    /// the icon of a broken image and another one null. An image that is damaged, or larger than an
    /// icon could sensibly be, counts as none.
    [[nodiscard]] QImage image(const QString &iconName) const;

    /// Fails for a "custom:" name that has no image; the reason is a text of the interface.
    [[nodiscard]] Result<void> check(const QString &iconName) const;

    /// Where the small version of an image file belongs that was made when it was imported. Formats
    /// that only the importer reads have an image by it alone.
    [[nodiscard]] static QString renditionPath(const QString &path);

private:
    struct CustomImage
    {
        QDateTime modified;
        QImage image;
    };

    [[nodiscard]] QImage ownImage(const QString &iconName) const;
    [[nodiscard]] QImage customImage(const QString &path) const;

    const ConfigManager &m_config;
    const ResourceBundle &m_bundle;
    mutable QHash<QString, CustomImage> m_customImages; ///< by path; decoding a photo takes long
};

}
