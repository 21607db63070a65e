// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "config/ResourceBundle.h"

#include "base/BundleFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace Tessel {

ResourceBundle::ResourceBundle(QString folder)
    : m_folder(std::move(folder))
{
}

const ResourceBundle &ResourceBundle::module()
{
    static const auto *bundle = new ResourceBundle(bundleFolder());
    return *bundle;
}

QString ResourceBundle::path(const QString &name, const QString &extension) const
{
    const QString file = m_folder + u'/' + name + u'.' + extension;
    return QFileInfo(file).isFile() ? file : QString();
}

QImage ResourceBundle::iconImage(const QString &name) const
{
    for (const char *extension : { "png", "svg", "jpg", "jpeg", "gif", "bmp" }) {
        const QString file = path(name, QLatin1StringView(extension));
        if (file.isEmpty())
            continue;
        QImageReader reader(file, extension);
        reader.setAutoDetectImageFormat(false); // for which Qt loads all of its plugins
        QImage image = reader.read();
        if (!image.isNull())
            return image;
    }
    return {};
}

QStringList ResourceBundle::iconSetNames() const
{
    const QLatin1StringView extension(".png");
    QStringList names
        = QDir(m_folder).entryList({ u"phosphor_*"_s + extension }, QDir::Files, QDir::Unsorted);
    for (QString &name : names)
        name.chop(extension.size());
    std::sort(names.begin(), names.end());
    return names;
}

}
