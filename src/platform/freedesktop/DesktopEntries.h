// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/freedesktop/DesktopEntry.h"

#include <QDateTime>
#include <QHash>
#include <QMap>
#include <QStringList>

namespace Tessel {

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

    /// The application that a file describes, wherever it is; nothing when it describes none.
    [[nodiscard]] std::optional<DesktopEntry> read(const QString &path) const;

    /// Every application, ordered by identifier.
    [[nodiscard]] QList<DesktopEntry> all();

    /// The entry of the application that a user calls this, whatever the case: its name in the
    /// user's language or in English, its identifier, or the latter's last part ("mousepad").
    [[nodiscard]] std::optional<DesktopEntry> findNamed(const QString &name);

private:
    void refresh();
    void add(const DesktopEntry &entry);
    [[nodiscard]] QString identifierOf(const QString &path) const;

    QStringList m_folders;
    QList<QDateTime> m_readAt; ///< modification times of the folders when they were read
    QMap<QString, DesktopEntry> m_byId; ///< by identifier in lower case
    QHash<QString, QString> m_idByWindowClass; ///< both in lower case
    QHash<QString, QString> m_idByProgram; ///< both in lower case
};

}
