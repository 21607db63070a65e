// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tessel {

/// What the program needs of a desktop entry (Desktop Entry Specification 1.5).
struct DesktopEntry
{
    QString id; ///< the file's name without ".desktop", folders joined by '-'
    QString name; ///< in the user's language
    QString windowClass; ///< StartupWMClass; often empty
    QString program; ///< file name of what Exec runs; empty when arguments make it something else
    QString icon; ///< a name of the icon theme, or an absolute path
    bool isTerminal = false; ///< category TerminalEmulator
    bool isShown = true; ///< in menus (NoDisplay)
    QString plainName; ///< whatever the user's language
    QString exec; ///< the command as written (key Exec), escapes of the file format resolved
    QString workingFolder;
    bool runsInTerminal = false;
    QString file; ///< the entry's own path; DesktopEntries fills it in

    friend bool operator==(const DesktopEntry &, const DesktopEntry &) = default;
};

/// Nothing when the content is not an application's entry. The locale is as in $LANG ("ko_KR").
[[nodiscard]] std::optional<DesktopEntry>
parseDesktopEntry(const QString &id, const QByteArray &content, const QString &locale);

/// Whether the entry says that its application opens files of the type (key MimeType). Not kept in
/// the entry, since some name hundreds.
[[nodiscard]] bool declaresMimeType(const QByteArray &content, const QByteArray &mimeType);

}
