// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/DesktopLook.h"

#include <QFile>
#include <QHash>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace Tessel {

namespace {

constexpr double pointsPerPixel = 0.75; // at 96 pixels per inch
constexpr qint64 maxFileSize = 1 << 20;

std::optional<double> positive(double size)
{
    return size > 0 ? std::optional(size) : std::nullopt;
}

/// All keys as "[Group]Key".
QHash<QByteArray, QByteArray> entries(const QByteArray &content)
{
    QHash<QByteArray, QByteArray> entries;
    QByteArray group;
    for (const QByteArray &line : content.split('\n')) {
        const QByteArray trimmed = line.trimmed();
        const qsizetype equals = trimmed.indexOf('=');
        if (trimmed.startsWith('['))
            group = trimmed;
        else if (equals > 0)
            entries.insert(group + trimmed.left(equals).trimmed(),
                           trimmed.mid(equals + 1).trimmed());
    }
    return entries;
}

/// "red,green,blue".
std::optional<bool> isDarkColor(const QByteArray &color)
{
    const QList<QByteArray> parts = color.split(',');
    if (parts.size() < 3)
        return {};
    // Luma of ITU-R BT.601.
    return parts[0].toInt() * 299 + parts[1].toInt() * 587 + parts[2].toInt() * 114 < 128 * 1000;
}

/// A font as Qt writes it: family, points, pixels (one of the sizes is -1), …
std::optional<double> sizeOfQtFont(const QByteArray &description)
{
    const QList<QByteArray> parts = description.split(',');
    if (parts.size() < 3)
        return {};
    const double points = parts[1].toDouble();
    return positive(points > 0 ? points : parts[2].toDouble() * pointsPerPixel);
}

}

std::optional<bool> isDarkTheme(QStringView name)
{
    if (name.isEmpty())
        return {};
    for (const QStringView word : { QStringView(u"dark"), QStringView(u"inverse") }) {
        const qsizetype start = name.lastIndexOf(word, Qt::CaseInsensitive);
        const qsizetype end = start + word.size();
        if (start >= 0 && (end == name.size() || !name[end].isLetter()))
            return true;
    }
    return false;
}

std::optional<double> sizeOfPangoFont(QStringView description)
{
    QStringView size = description.trimmed();
    size = size.mid(size.lastIndexOf(u' ') + 1);
    if (size.endsWith(u"px"))
        return positive(size.chopped(2).toDouble() * pointsPerPixel);
    return positive(size.toDouble());
}

DesktopLook lookOfKdeGlobals(const QByteArray &content)
{
    const auto values = entries(content);
    auto isDark = isDarkColor(values.value("[Colors:Window]BackgroundNormal"));
    if (!isDark)
        isDark = isDarkTheme(QString::fromUtf8(values.value("[General]ColorScheme")));
    return { isDark, sizeOfQtFont(values.value("[General]font")) };
}

DesktopLook readKdeGlobals()
{
    DesktopLook look;
    const QStringList files
        = QStandardPaths::locateAll(QStandardPaths::GenericConfigLocation, u"kdeglobals"_s);
    for (const QString &path : files) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const DesktopLook more = lookOfKdeGlobals(file.read(maxFileSize));
        look.isDark = look.isDark ? look.isDark : more.isDark;
        look.fontSize = look.fontSize ? look.fontSize : more.fontSize;
    }
    return look;
}

}
