// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "platform/freedesktop/DesktopEntries.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>

namespace Tessel {

namespace {

constexpr QLatin1StringView extension(".desktop");
constexpr qint64 largestFile = 1 << 20;

}

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
        for (const QString &id : { m_idByWindowClass.value(key), key, m_idByProgram.value(key) }) {
            if (const auto entry = m_byId.constFind(id); entry != m_byId.constEnd())
                return *entry;
        }
    }
    return {};
}

QList<DesktopEntry> DesktopEntries::all()
{
    refresh();
    return m_byId.values();
}

std::optional<DesktopEntry> DesktopEntries::findNamed(const QString &name)
{
    refresh();
    const auto isName = [&name](const QString &candidate) {
        return candidate.compare(name, Qt::CaseInsensitive) == 0;
    };
    const DesktopEntry *found = nullptr;
    for (const DesktopEntry &entry : std::as_const(m_byId)) {
        if (isName(entry.id))
            return entry;
        const bool matches
            = isName(entry.name) || isName(entry.plainName) || isName(entry.id.section(u'.', -1));
        if (matches && (!found || entry.id < found->id))
            found = &entry;
    }
    return found ? std::optional(*found) : std::nullopt;
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
    m_idByProgram.clear();
    for (const QString &folder : std::as_const(m_folders)) {
        QDirIterator files(folder, { u'*' + extension }, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            if (const auto entry = read(files.next()))
                add(*entry);
        }
    }
}

/// The first of several entries with one identifier counts.
void DesktopEntries::add(const DesktopEntry &entry)
{
    const QString id = entry.id.toLower();
    if (m_byId.contains(id))
        return;
    m_byId.insert(id, entry);
    if (!entry.windowClass.isEmpty())
        m_idByWindowClass.insert(entry.windowClass.toLower(), id);
    if (!entry.program.isEmpty() && entry.isShown)
        m_idByProgram.insert(entry.program.toLower(), id);
}

std::optional<DesktopEntry> DesktopEntries::read(const QString &path) const
{
    QFile file(path);
    if (!path.endsWith(extension) || !QFileInfo(path).isFile() || file.size() > largestFile
        || !file.open(QIODevice::ReadOnly))
        return {};
    auto entry = parseDesktopEntry(identifierOf(path), file.readAll(), QLocale().name());
    if (entry)
        entry->file = path;
    return entry;
}

/// Section "Desktop File ID".
QString DesktopEntries::identifierOf(const QString &path) const
{
    QString id = QFileInfo(path).fileName();
    for (const QString &folder : m_folders) {
        if (path.startsWith(folder + u'/'))
            id = path.mid(folder.size() + 1);
    }
    return id.chopped(extension.size()).replace(u'/', u'-');
}

}
