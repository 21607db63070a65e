// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/DesktopEntries.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

DesktopEntries::DesktopEntries(QStringList folders)
    : m_folders(std::move(folders))
{
}

QStringList DesktopEntries::standardFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

std::optional<DesktopEntry> DesktopEntries::find(const QStringList &names)
{
    refresh();
    for (const QString &name : names) {
        if (name.isEmpty())
            continue;
        const QString key = name.toLower();
        const QString id = m_idByWindowClass.value(key, key);
        if (const auto entry = m_byId.constFind(id); entry != m_byId.constEnd())
            return *entry;
    }
    return {};
}

void DesktopEntries::refresh()
{
    QList<QDateTime> times;
    for (const QString &folder : std::as_const(m_folders))
        times += QFileInfo(folder).lastModified();
    if (times == m_readAt)
        return;
    m_readAt = times;
    m_byId.clear();
    m_idByWindowClass.clear();
    for (const QString &folder : std::as_const(m_folders)) {
        QDirIterator files(folder, { QStringLiteral("*.desktop") }, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext())
            add(folder, files.next());
    }
}

void DesktopEntries::add(const QString &folder, const QString &path)
{
    QString id = QDir(folder).relativeFilePath(path).chopped(qsizetype(sizeof ".desktop") - 1);
    id.replace(u'/', u'-');
    QFile file(path);
    if (m_byId.contains(id.toLower()) || !file.open(QIODevice::ReadOnly))
        return;
    const auto entry = parseDesktopEntry(id, file.readAll(), QLocale().name());
    if (!entry)
        return;
    m_byId.insert(id.toLower(), *entry);
    if (!entry->windowClass.isEmpty())
        m_idByWindowClass.insert(entry->windowClass.toLower(), id.toLower());
}
