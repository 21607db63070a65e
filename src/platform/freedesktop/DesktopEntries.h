// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/DesktopEntry.h"

#include <QDateTime>
#include <QHash>
#include <QStringList>

/// The installed applications. Read when first asked, again when a folder has changed.
class DesktopEntries
{
public:
    /// Folders in order of precedence.
    explicit DesktopEntries(QStringList folders);

    /// "applications" below $XDG_DATA_HOME and $XDG_DATA_DIRS.
    [[nodiscard]] static QStringList standardFolders();

    /// The entry that belongs to a window which goes by these names, the most telling one first:
    /// application id, window class, instance. Empty names are passed over.
    [[nodiscard]] std::optional<DesktopEntry> find(const QStringList &names);

private:
    void refresh();
    void add(const QString &folder, const QString &path);

    QStringList m_folders;
    QList<QDateTime> m_readAt; ///< modification times of the folders when they were read
    QHash<QString, DesktopEntry> m_byId; ///< by identifier in lower case
    QHash<QString, QString> m_idByWindowClass; ///< both in lower case
};
